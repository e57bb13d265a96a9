#include "reports/report_questions.h"

#include "platform/busy_pointer.h"
#include "reports/ervthsh.h"
#include "reports/forma_tajinomhshs.h"

namespace lorvan {

void askQuestions(ReportRequest& request, QWidget* parent)
{
    const OrdinaryPointer pointer;
    if (request.report == Report::CodeList) {
        FormaTajinomhshs question(parent);
        question.exec();
        request.inputs.sort = question.sort();
        request.inputs.selection = question.selection();
    }
    if (request.report == Report::Cheques) {
        Ervthsh question(parent);
        question.exec();
        request.inputs.form = question.isSummaryChosen() ? ReportForm::Summary : ReportForm::Detailed;
    }
}

} // namespace lorvan

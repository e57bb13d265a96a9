#include "printing/report_questions.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "codes/group_card_choice.h"
#include "look/busy_pointer.h"
#include "look/message_window.h"
#include "platform/engine/connection.h"
#include "printing/analysh_frm.h"
#include "printing/epilogh_omadvn.h"
#include "printing/option_question.h"
#include "reports/cash_analysis_report.h"

namespace lorvan {
namespace {

void askOrder(ReportInputs& inputs, QWidget* parent)
{
    FormaTajinomhshs question(parent);
    question.exec();
    inputs.sort = question.sort();
    inputs.selection = question.selection();
}

/// `unanswered` is the form used if neither was chosen.
void askForm(ReportInputs& inputs, ReportForm unanswered, QWidget* parent)
{
    Ervthsh question(parent);
    question.exec();
    if (question.isSummaryChosen())
        inputs.form = ReportForm::Summary;
    else
        inputs.form = question.isDetailedChosen() ? ReportForm::Detailed : unanswered;
}

void askColumns(ReportRequest& request, QWidget* parent)
{
    EpiloghOmadvn question(request.offeredGroups, SettingsStore(), parent);
    question.exec();
    request.inputs.cardColumns = cardColumnsOf(question.choice());
}

void askGroups(ReportInputs& inputs, const BookFiles& files, KeyRing& keys, QWidget* parent)
{
    const QString path = files.mainDatabase();
    Connection main = openBookFile(path, keys);
    if (!hasCashAnalysis(main, inputs.start))
        return;
    AnalyshFRM screen(main, SettingsStore(), inputs.startText, parent);
    screen.exec();
    inputs.analysisGroups = screen.groups();
}

bool refuseEmpty(bool isEmpty, const QString& text, QWidget* parent)
{
    if (isEmpty)
        showMessage(parent, QMessageBox::Critical, QStringLiteral("Προσοχή"), text);
    return !isEmpty;
}

} // namespace

bool askQuestions(ReportRequest& request, const BookFiles& files, KeyRing& keys, QWidget* parent)
{
    const OrdinaryPointer pointer;
    switch (request.report) {
    case Report::CodeList:
        askOrder(request.inputs, parent);
        return true;
    case Report::Cheques:
        askForm(request.inputs, ReportForm::Detailed, parent);
        return true;
    case Report::MovementsByCode:
        askForm(request.inputs, ReportForm::Summary, parent);
        return refuseEmpty(!request.offersCodes, QStringLiteral("Δεν υπάρχουν κωδικοί για την εκτύπωση"), parent);
    case Report::MovementsByGroup:
        return refuseEmpty(
            request.offeredGroups.empty(), QStringLiteral("Δεν υπάρχουν ομάδες για την εκτύπωση"), parent);
    case Report::GroupCard:
        askColumns(request, parent);
        return true;
    case Report::CashAnalysis:
        askGroups(request.inputs, files, keys, parent);
        return true;
    default:
        return true;
    }
}

} // namespace lorvan

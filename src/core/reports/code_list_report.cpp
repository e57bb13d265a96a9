#include "reports/code_list_report.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/engine/connection.h"

#include <string>

namespace lorvan {
namespace {

std::string_view orderFor(CodeSort sort)
{
    switch (sort) {
    case CodeSort::Code:
        break;
    case CodeSort::Description:
        return "perigrafh COLLATE greek, kvdikos, aa";
    case CodeSort::Group:
        return "omada COLLATE greek, kvdikos, aa";
    }
    return "kvdikos, aa";
}

Statement sortedCodes(Connection& main, const ReportInputs& inputs)
{
    auto codes =
        main.prepare(std::string("SELECT kvdikos, perigrafh, omada FROM kvdikoi WHERE energos<>0 OR ? ORDER BY ")
                         .append(orderFor(inputs.sort)));
    codes.bind(inputs.selection == CodeSelection::All);
    return codes;
}

} // namespace

ReportDocument codeListReport(Connection& main, const ReportInputs& inputs, const ReportProgress& progress)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.SetHeader(QStringLiteral("Κωδικοί κίνησης") + QStringLiteral("   ") + inputs.heading);
    document.Paragraph(lineBreak);
    ReportTable table(document, QStringLiteral("^1500|^1500|3000|<3000"), progress);
    table.begin(1, QStringLiteral("α/α|Κωδ.|Περιγραφή|Ομάδα"), QStringLiteral("|||"), reportColour(255, 255, 220));
    document.SetFont({.size = 10});
    auto codes = sortedCodes(main, inputs);
    while (codes.step()) {
        table.addRow(
            {QString::number(table.nextNumber()), QString::number(codes.number(0)), codes.text(1), codes.text(2)});
        document.RowStandsFor({RowSubject::Kind::Code, codes.number(0)});
    }
    document.EndDoc();
    return document;
}

} // namespace lorvan

#include "reports/key_sheet.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/key_table.h"

namespace lorvan {
namespace {

constexpr auto columns = "<3000|<7000";
const ReportProgress noQuestions; // a page

} // namespace

ReportDocument keySheet(const QString& heading)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = 850});
    document.SetHeader(QStringLiteral("Πλήκτρα   ") + heading);
    document.StartDoc();
    ReportTable table(document, QLatin1String(columns), noQuestions);
    const std::vector<KeyEntry>& keys = keyTable();
    for (auto each = keys.begin(); each != keys.end(); ++each) {
        if (each == keys.begin() || std::prev(each)->place != each->place) {
            document.SetFont({.size = 2});
            document.Paragraph(lineBreak);
            document.SetFont({.size = 8, .bold = true});
            document.Paragraph(keyPlaceText(each->place));
            document.SetFont({.size = 7, .bold = false}); // so that one sheet holds them all
            document.AddTable(QLatin1String(columns), {}, {});
        }
        table.addRow({keysText(*each), each->does});
    }
    document.EndDoc();
    return document;
}

} // namespace lorvan

#include "reports/key_sheet.h"

#include "document/report_cells.h"
#include "document/report_table.h"
#include "platform/key_table.h"

#include <optional>
#include <utility>

namespace lorvan {
namespace {

constexpr auto columns = "<2500|<2200|<5900";
constexpr int lineAbove = 2;
const ReportProgress noQuestions; // a page

} // namespace

ReportDocument keySheet(const QString& heading)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = 850, .right = 450});
    document.SetHeader(QStringLiteral("Πλήκτρα   ") + heading);
    document.StartDoc();
    document.SetFont({.size = 7}); // so that one sheet holds them all
    ReportTable table(document, QLatin1String(columns), noQuestions);
    std::optional<KeyPlace> place;
    for (const KeyEntry& each : keyTable()) {
        const bool isNew = std::exchange(place, each.place) != each.place;
        document.SetTableBorder(isNew ? lineAbove : 0);
        table.addRow({isNew ? keyPlaceText(each.place) : QString(), keysText(each), each.does});
    }
    document.EndDoc();
    return document;
}

} // namespace lorvan

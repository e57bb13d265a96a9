#include "printing/report_list.h"

#include "look/focus_rules.h"
#include "reports/report_catalogue.h"

#include <QKeyEvent>

namespace lorvan {
namespace {

constexpr int pixelsOfRow = 32;

std::vector<ListRow> reportRows()
{
    std::vector<ListRow> rows;
    for (const ReportEntry& entry : reportCatalogue())
        rows.push_back({entry.text, static_cast<qint64>(entry.report)});
    return rows;
}

} // namespace

ReportList::ReportList(QWidget* parent)
    : PlainList(Face::FixedWidth, parent)
{
    setRowHeight(pixelsOfRow);
    setRows(reportRows());
}

void ReportList::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && event->key() >= Qt::Key_1 && event->key() <= Qt::Key_9)
        selectData(event->key() - Qt::Key_0);
    else if (isPlain && isEnter(*event))
        focusNextChild();
    else
        PlainList::keyPressEvent(event);
}

} // namespace lorvan

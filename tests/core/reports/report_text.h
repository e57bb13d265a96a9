#pragma once

#include "document/report_document.h"
#include "support/printing.h"

#include <QStringList>

namespace lorvan::test {

/// One item as a line: "=" titles, "#" grey, "*" bold, (size) other than 10, [border], then its cells; "~" breaks.
[[nodiscard]] inline QString lineOf(const ReportItem& item)
{
    QString line = item.isTitles() ? "=" : "";
    line += QString("#").first(item.shade() == reportColour(222, 225, 225) ? 1 : 0);
    line += QString("*").first(item.font().bold ? 1 : 0);
    line += item.font().size != 10 ? QString("(%1)").arg(item.font().size) : QString();
    line += item.border() != 0 ? QString("[%1]").arg(item.border()) : QString();
    return line + item.cells().join(u'|').replace(u'\r', u'~');
}

[[nodiscard]] inline QStringList linesOf(const ReportDocument& document)
{
    QStringList lines;
    for (int index = 0; index < document.itemCount(); ++index)
        lines.append(lineOf(document.item(index)));
    return lines;
}

[[nodiscard]] inline QString textOf(const std::vector<ReportColumn>& columns)
{
    QString text;
    for (const ReportColumn& column : columns)
        text += QString("<^>")[static_cast<int>(column.alignment)] + QString::number(column.width);
    return text;
}

/// A first line with page header, left and right margin, and font, columns and shade of titles of the last item; then
/// all items.
[[nodiscard]] inline QString wholeOf(const ReportDocument& document)
{
    const ReportItem last = document.item(document.itemCount() - 1);
    const ReportColour shade = last.titlesItem() < 0 ? noShade : document.item(last.titlesItem()).shade();
    const QString frame = QString("%1 / %2 %3 / %4 / %5 / %6\n").arg(document.header());
    return frame.arg(document.page().left)
               .arg(document.page().right)
               .arg(last.font().name, textOf(last.columns()))
               .arg(shade, 0, 16)
        + linesOf(document).join(u'\n');
}

} // namespace lorvan::test

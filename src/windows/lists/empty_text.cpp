#include "lists/empty_text.h"

#include "look/theme.h"

#include <QAbstractScrollArea>
#include <QPainter>

namespace lorvan {

void paintEmptyText(QAbstractScrollArea& list, int top, const QString& text)
{
    constexpr int margin = 14;
    const QRect place = list.viewport()->rect().adjusted(margin, top + margin, -margin, 0);
    QPainter painter(list.viewport());
    painter.setFont(Theme::instance().font());
    painter.setPen(Theme::instance().colour(ColourRole::Muted));
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
}

} // namespace lorvan

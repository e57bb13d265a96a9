#include "controls/path_label.h"

#include "lists/row_delegate.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int leastWidth = 40;

} // namespace

PathLabel::PathLabel(ColourRole role, qreal factor, QWidget* parent)
    : ThemedLabel({}, role, factor, QFont::Normal, parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setEnabled(false);
}

void PathLabel::setPath(const QString& path)
{
    setText(path);
    setAccessibleName(path);
    setEnabled(!path.isEmpty());
}

QSize PathLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * inset + 1, fontMetrics().height()};
}

QSize PathLabel::minimumSizeHint() const
{
    return {leastWidth, fontMetrics().height()};
}

QString PathLabel::shownText() const
{
    const QFontMetrics metrics = fontMetrics();
    const int room = width() - 2 * inset;
    if (text().isEmpty())
        return metrics.elidedText(m_emptyText, Qt::ElideRight, room);
    if (metrics.horizontalAdvance(text()) <= room)
        return text();
    const QString name = u'/' + QFileInfo(text()).fileName();
    const QString folder = text().chopped(name.size());
    const int roomForFolder = std::max(room - metrics.horizontalAdvance(name), 0);
    return metrics.elidedText(metrics.elidedText(folder, Qt::ElideMiddle, roomForFolder) + name, Qt::ElideLeft, room);
}

void PathLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = shownText();
    if (hasFocus()) {
        const int width = fontMetrics().horizontalAdvance(shown) + 2 * inset;
        painter.fillRect(QRect(0, 0, width, height()), Theme::instance().colour(ColourRole::Highlight));
        painter.setPen(Theme::instance().colour(ColourRole::HighlightText));
    } else {
        painter.setPen(palette().color(QPalette::WindowText));
    }
    painter.drawText(rect().adjusted(inset, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

bool PathLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return ThemedLabel::event(event);
    if (!text().isEmpty() && shownText() != text())
        showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(), text(), this, rect());
    return true;
}

void PathLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else
        ThemedLabel::keyPressEvent(event);
}

void PathLabel::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    connect(menu.addAction(QStringLiteral("Αντιγραφή")), &QAction::triggered, this, &PathLabel::copy);
    menu.exec(event->globalPos());
}

void PathLabel::copy() const
{
    QGuiApplication::clipboard()->setText(text());
}

} // namespace lorvan

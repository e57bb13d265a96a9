#include "cashbook/month_grid.h"

#include "lists/row_delegate.h"
#include "look/accessible_role.h"
#include "look/focus_rules.h"
#include "look/icons.h"
#include "look/style_painting.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

constexpr int columns = 7;
constexpr int rows = 7; // the weekdays above six weeks
constexpr int cellPadding = 7;
constexpr int lockSize = 10;
constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr std::array weekdays{"Δε", "Τρ", "Τε", "Πέ", "Πα", "Σά", "Κυ"};

} // namespace

MonthGrid::MonthGrid(QDate shown, QDate today, Reader reader, QWidget* parent)
    : QWidget(parent)
    , m_read(std::move(reader))
    , m_shown(shown)
    , m_today(today)
{
    setObjectName(QStringLiteral("monthGrid"));
    setAccessibleRole(staticMetaObject, QAccessible::Canvas);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCurrent(shown);
}

void MonthGrid::setCurrent(QDate day)
{
    if (!day.isValid() || day.year() < firstYear || day.year() > lastYear)
        return;
    const bool isOtherMonth =
        !m_current.isValid() || day.month() != m_current.month() || day.year() != m_current.year();
    m_current = day;
    if (isOtherMonth)
        read();
    tellCurrent();
    update();
}

void MonthGrid::read()
{
    const QDate first = firstOnCalendarPage(m_current);
    m_days.clear();
    for (int i = 0; i < daysOnCalendarPage; ++i)
        m_days.push_back({first.addDays(i)});
    if (auto known = m_read(first, m_days.back().day); known.size() == m_days.size())
        m_days = std::move(known);
    Q_EMIT monthChanged(m_current);
}

void MonthGrid::tellCurrent()
{
    const qint64 place = m_days.front().day.daysTo(m_current);
    setAccessibleName(calendarDayText(m_days.at(static_cast<std::size_t>(place))));
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

QSize MonthGrid::sizeHint() const
{
    const QFontMetrics metrics(Theme::instance().font(1.0, QFont::Bold));
    const int side =
        std::max(metrics.horizontalAdvance(QStringLiteral("88")) + 2 * lockSize, metrics.height()) + cellPadding;
    return {columns * side, rows * (metrics.height() + 2 * cellPadding)};
}

QRect MonthGrid::cell(int row, int column) const
{
    const int left = column * width() / columns;
    const int top = row * height() / rows;
    return {left, top, (column + 1) * width() / columns - left, (row + 1) * height() / rows - top};
}

const CalendarDay* MonthGrid::dayAt(QPoint place) const
{
    for (int i = 0; i < daysOnCalendarPage; ++i) {
        if (cell(1 + i / columns, i % columns).contains(place))
            return &m_days.at(static_cast<std::size_t>(i));
    }
    return nullptr;
}

void MonthGrid::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintWeekdays(painter);
    for (int i = 0; i < daysOnCalendarPage; ++i)
        paintDay(painter, cell(1 + i / columns, i % columns), m_days.at(static_cast<std::size_t>(i)));
}

void MonthGrid::paintWeekdays(QPainter& painter) const
{
    painter.setFont(Theme::instance().font(0.9));
    painter.setPen(Theme::instance().colour(ColourRole::PageMuted));
    for (int column = 0; column < columns; ++column)
        painter.drawText(
            cell(0, column), Qt::AlignCenter, QString::fromUtf8(weekdays.at(static_cast<std::size_t>(column))));
}

/// The current day has the ground of a selected row, the day of the cash page that of one without the keyboard, today a
/// frame.
void MonthGrid::paintDay(QPainter& painter, const QRect& area, const CalendarDay& day) const
{
    const Theme& theme = Theme::instance();
    const bool isCurrent = day.day == m_current;
    const bool isShown = day.day == m_shown;
    const QColor ground = theme.colour(isCurrent ? ColourRole::Highlight : ColourRole::Tint);
    const QColor border = theme.colour(isCurrent ? ColourRole::HighlightText : ColourRole::PageAccent);
    if (isCurrent || isShown || day.day == m_today)
        paintPanel(painter, QRectF(area).adjusted(1, 1, -1, -1), isCurrent || isShown ? ground : Qt::transparent,
            day.day == m_today ? border : ground, 1);
    const bool isOfMonth = day.day.month() == m_current.month();
    const ColourRole role = isCurrent ? ColourRole::HighlightText
        : isShown                     ? ColourRole::Text
        : isOfMonth                   ? ColourRole::PageText
                                      : ColourRole::PageMuted;
    painter.setFont(theme.font(1.0, day.hasMovements ? QFont::Bold : QFont::Normal));
    painter.setPen(theme.colour(role));
    painter.drawText(area, Qt::AlignCenter, QString::number(day.day.day()));
    if (day.isClosed)
        paintIcon(painter, QRect(area.right() - lockSize - 1, area.top() + 3, lockSize, lockSize),
            QStringLiteral("closecash"), theme.colour(role));
}

bool MonthGrid::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    if (const CalendarDay* const day = dayAt(help.pos()))
        showPlainToolTip(help.globalPos(), calendarDayText(*day), this, {});
    return true;
}

QDate MonthGrid::dayOfKey(const QKeyEvent& event) const
{
    const bool isYear = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Left:
        return m_current.addDays(-1);
    case Qt::Key_Right:
        return m_current.addDays(1);
    case Qt::Key_Up:
        return m_current.addDays(-columns);
    case Qt::Key_Down:
        return m_current.addDays(columns);
    case Qt::Key_PageUp:
        return isYear ? m_current.addYears(-1) : m_current.addMonths(-1);
    case Qt::Key_PageDown:
        return isYear ? m_current.addYears(1) : m_current.addMonths(1);
    case Qt::Key_Home:
        return event.modifiers().testFlag(Qt::AltModifier) ? m_today : QDate(m_current.year(), m_current.month(), 1);
    case Qt::Key_End:
        return {m_current.year(), m_current.month(), m_current.daysInMonth()};
    default:
        return {};
    }
}

void MonthGrid::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event) || event->key() == Qt::Key_Space) {
        if (!event->isAutoRepeat())
            Q_EMIT chosen(m_current);
    } else if (const QDate day = dayOfKey(*event); day.isValid()) {
        setCurrent(day);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void MonthGrid::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // the release chooses: a button held down outside must not
}

void MonthGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (const CalendarDay* const day = dayAt(event->position().toPoint()))
        Q_EMIT chosen(day->day);
}

} // namespace lorvan

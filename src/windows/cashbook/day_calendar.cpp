#include "cashbook/day_calendar.h"

#include "controls/command_button.h"
#include "look/style_painting.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/date_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace lorvan {
namespace {

constexpr int margin = 8;

CommandButton* headButton(const QString& icon, const QString& caption, const QString& name)
{
    auto* const button = new CommandButton(icon, caption);
    button->setSmall(true);
    button->setFrameless(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys of the days do the same
    button->setAccessibleName(name);
    return button;
}

} // namespace

DayCalendar::DayCalendar(QDate shown, QDate today, MonthGrid::Reader reader, QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , m_grid(new MonthGrid(shown, today, std::move(reader), this))
{
    setObjectName(QStringLiteral("dayCalendar"));
    setAccessibleName(QStringLiteral("Ημερολόγιο"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(4);
    rows->addWidget(headRow(today));
    rows->addWidget(m_grid);
    setFocusProxy(m_grid);
    connect(m_grid, &MonthGrid::chosen, this, [this](QDate day) {
        close(); // the keyboard is back where it was
        Q_EMIT chosen(day);
    });
}

QWidget* DayCalendar::headRow(QDate today)
{
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto* const previous = headButton(QStringLiteral("prev"), {}, QStringLiteral("Προηγούμενος μήνας"));
    auto* const next = headButton(QStringLiteral("next"), {}, QStringLiteral("Επόμενος μήνας"));
    auto* const toToday = headButton({}, QStringLiteral("Σήμερα"), QStringLiteral("Σήμερα"));
    auto* const title = listHeading(monthText(m_grid->current()));
    title->setObjectName(QStringLiteral("calendarMonth"));
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addWidget(title, 1);
    layout->addWidget(toToday);
    connect(previous, &CommandButton::clicked, this, [this] { m_grid->setCurrent(m_grid->current().addMonths(-1)); });
    connect(next, &CommandButton::clicked, this, [this] { m_grid->setCurrent(m_grid->current().addMonths(1)); });
    connect(toToday, &CommandButton::clicked, this, [this, today] { m_grid->setCurrent(today); });
    connect(m_grid, &MonthGrid::monthChanged, title, [title](QDate month) { title->setText(monthText(month)); });
    return row;
}

void DayCalendar::openAt(const QWidget& widget)
{
    adjustSize();
    const QRect area = widget.screen()->availableGeometry();
    QPoint corner = widget.mapToGlobal(QPoint(0, widget.height() + 2));
    if (corner.y() + height() > area.bottom())
        corner.setY(widget.mapToGlobal(QPoint(0, -2)).y() - height());
    move(keptIn(area, QRect(corner, size())));
    show();
    m_grid->setFocus(Qt::PopupFocusReason);
}

void DayCalendar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F4)
        close();
    else
        QFrame::keyPressEvent(event);
}

void DayCalendar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    painter.fillRect(rect(), theme.colour(ColourRole::Page));
    paintPanel(painter, rect(), theme.colour(ColourRole::Page), theme.colour(ColourRole::Edge), 1, 0);
}

} // namespace lorvan

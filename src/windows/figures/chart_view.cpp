#include "figures/chart_view.h"

#include "chart_painter.h"
#include "lists/row_delegate.h"
#include "look/accessible_role.h"
#include "look/focus_rules.h"
#include "look/theme.h"
#include "platform/amount_text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace lorvan {
namespace {

constexpr qreal textFactor = 0.9;
constexpr int inset = 10;
constexpr int focusWidth = 2;
constexpr QSize wantedSize{760, 320};
constexpr QSize leastSize{280, 110};

} // namespace

ChartView::ChartView(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleRole(staticMetaObject, QAccessible::Chart);
    setAccessibleName(QStringLiteral("Διάγραμμα"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ChartView::setChart(Chart chart, const QString& title)
{
    m_chart = std::move(chart);
    m_marked = -1;
    setAccessibleName(title);
    setAccessibleDescription({});
    update();
}

void ChartView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    update();
}

void ChartView::mark(int place)
{
    if (place >= m_chart.places.size() || place == m_marked)
        return;
    m_marked = place;
    setAccessibleDescription(place < 0 ? QString() : textOf(place));
    update();
}

QSize ChartView::sizeHint() const
{
    return wantedSize;
}

QSize ChartView::minimumSizeHint() const
{
    return leastSize;
}

ChartLook ChartView::chartLook() const
{
    const Theme& theme = Theme::instance();
    return {theme.figureFont(textFactor), 1, theme.colour(ColourRole::Text), theme.colour(ColourRole::Muted),
        theme.colour(ColourRole::Line), theme.colour(ColourRole::Income), theme.colour(ColourRole::Expense),
        theme.colour(ColourRole::Accent), theme.colour(ColourRole::Tint)};
}

QRectF ChartView::chartArea() const
{
    return QRectF(rect()).adjusted(inset, inset, -inset, -inset);
}

int ChartView::placeAt(QPointF point) const
{
    const ChartLook look = chartLook();
    return m_chart.isEmpty() ? -1 : ChartLayout(m_chart, look, chartArea()).placeAt(point);
}

QString ChartView::textOf(int place) const
{
    QString text = m_chart.places.value(place);
    for (const ChartPanel& panel : m_chart.panels) {
        for (const ChartSeries& series : panel.series) {
            const auto& value = series.values.at(static_cast<std::size_t>(place));
            if (value)
                text += u'\n' + series.name + QStringLiteral(": ") + amountText(*value);
        }
    }
    return text;
}

void ChartView::markByUser(int place)
{
    if (place < 0 || place >= m_chart.places.size())
        return;
    mark(place);
    Q_EMIT placeMarked(place);
}

bool ChartView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& asked = static_cast<const QHelpEvent&>(*event);
    const int place = placeAt(asked.pos());
    showPlainToolTip(asked.globalPos(), place < 0 ? QString() : textOf(place), this, rect());
    return true;
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    const int last = static_cast<int>(m_chart.places.size()) - 1;
    switch (event->modifiers().testFlag(Qt::AltModifier) ? 0 : event->key()) { // with Alt it is not for the chart
    case Qt::Key_Left:
    case Qt::Key_Up:
        markByUser(std::max(m_marked - 1, 0));
        return;
    case Qt::Key_Right:
    case Qt::Key_Down:
        markByUser(std::min(m_marked + 1, last));
        return;
    case Qt::Key_Home:
        markByUser(0);
        return;
    case Qt::Key_End:
        markByUser(last);
        return;
    default:
        break;
    }
    if (isEnter(*event) && m_marked >= 0 && !event->isAutoRepeat())
        Q_EMIT placeChosen(m_marked);
    else
        QWidget::keyPressEvent(event);
}

void ChartView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        markByUser(placeAt(event->position()));
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int place = placeAt(event->position());
    if (event->button() == Qt::LeftButton && place >= 0)
        Q_EMIT placeChosen(place);
}

void ChartView::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.colour(ColourRole::Base));
    if (m_chart.isEmpty()) {
        painter.setPen(theme.colour(ColourRole::Muted));
        painter.drawText(chartArea(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    } else {
        paintChart(painter, chartArea(), m_chart, chartLook(), m_marked);
    }
    const qreal width = hasFocus() ? focusWidth : 1;
    painter.setPen(QPen(theme.colour(hasFocus() ? ColourRole::Accent : ColourRole::Edge), width));
    painter.drawRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void ChartView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ChartView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

} // namespace lorvan

#include "controls/state_plate.h"

#include "controls/label3d.h"
#include "look/style_painting.h"
#include "look/theme.h"

#include <QPainter>

namespace lorvan {
namespace {

constexpr int usualHeight = 28;
constexpr int sidePadding = 14;
constexpr int heightOverFont = 6;
constexpr qreal fontFactor = 1.2;

constexpr QRgb green = qRgb(0, 255, 0);
constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb greenBehind = qRgb(0, 0x4A, 0);
constexpr QRgb redBehind = qRgb(0x48, 0, 0);

} // namespace

StatePlate::StatePlate(const QString& openCaption, const QString& closedCaption, QWidget* parent)
    : QFrame(parent)
    , m_openCaption(openCaption)
    , m_closedCaption(closedCaption)
    , m_label(new Label3D(this))
{
    m_label->setObjectName(QStringLiteral("Label3D1(3)"));
    m_label->setBackColor(Qt::transparent);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&Theme::instance(), &Theme::changed, this, &StatePlate::dress);
    dress();
    showOpen();
}

void StatePlate::dress()
{
    m_label->setFont(Theme::instance().font(fontFactor, QFont::Bold));
    updateGeometry();
    placeLabel();
}

void StatePlate::showOpen()
{
    show(m_openCaption, green, greenBehind);
}

void StatePlate::showClosed()
{
    show(m_closedCaption, red, redBehind);
}

void StatePlate::explain(const QString& text)
{
    setToolTip(text);
    m_label->setToolTip(text);
    m_label->setAccessibleDescription(text);
}

void StatePlate::show(const QString& caption, QColor front, QColor back)
{
    m_label->setCaption(caption);
    m_label->setForeColor1(back);
    m_label->setForeColor2(front);
    placeLabel();
}

QSize StatePlate::sizeHint() const
{
    const QFontMetrics metrics(m_label->font());
    const int text = std::max(metrics.horizontalAdvance(m_openCaption), metrics.horizontalAdvance(m_closedCaption));
    return {text + 1 + 2 * sidePadding, std::max(usualHeight, metrics.height() + heightOverFont)};
}

void StatePlate::placeLabel()
{
    QRect place(QPoint(), m_label->sizeHint());
    place.moveCenter(rect().center());
    m_label->setGeometry(place);
}

void StatePlate::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    placeLabel();
}

void StatePlate::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    const QColor ground = theme.colour(ColourRole::Plate);
    paintPanel(painter, rect(), ground, theme.isDark() ? theme.colour(ColourRole::Line) : ground, 1);
}

} // namespace lorvan

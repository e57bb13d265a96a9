#include "controls/label3d.h"

#include "look/accessible_role.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace lorvan {
namespace {

constexpr int leastExtent = 7; // 100 twips
constexpr int lastPlacedPhase = 3;

constexpr auto enabledName = "Enabled";
constexpr auto fontName = "Font";
constexpr auto foreColor1Name = "ForeColor1";
constexpr auto foreColor2Name = "ForeColor2";
constexpr auto captionName = "Caption";
constexpr auto alignmentName = "Alignment";
constexpr auto phaseName = "Phase";
constexpr auto backColorName = "BackColor";
constexpr auto borderStyleName = "BorderStyle";

Qt::Alignment qtAlignment(Label3D::TextAlignment alignment)
{
    switch (alignment) {
    case Label3D::TextAlignment::Right:
        return Qt::AlignRight;
    case Label3D::TextAlignment::Centre:
        return Qt::AlignHCenter;
    case Label3D::TextAlignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

qint16 buttonCode(Qt::MouseButtons buttons)
{
    return static_cast<qint16>((buttons.testFlag(Qt::LeftButton) ? 1 : 0) + (buttons.testFlag(Qt::RightButton) ? 2 : 0)
        + (buttons.testFlag(Qt::MiddleButton) ? 4 : 0));
}

qint16 shiftCode(Qt::KeyboardModifiers keys)
{
    return static_cast<qint16>((keys.testFlag(Qt::ShiftModifier) ? 1 : 0) + (keys.testFlag(Qt::ControlModifier) ? 2 : 0)
        + (keys.testFlag(Qt::AltModifier) ? 4 : 0));
}

QFont ambientFont(const QWidget& widget)
{
    return widget.parentWidget() ? widget.parentWidget()->font() : QApplication::font();
}

} // namespace

void PropertyBag::write(const QString& name, const QVariant& value, const QVariant& byDefault)
{
    if (value == byDefault)
        m_values.remove(name);
    else
        m_values.insert(name, value);
}

Label3D::Label3D(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(leastExtent, leastExtent);
    setAccessibleRole(staticMetaObject, QAccessible::StaticText);
    setAccessibleName(m_caption);
    setMouseTracking(true);
    layOut();
}

QColor Label3D::foreColor1() const
{
    return m_foreColor1.isValid() ? m_foreColor1 : palette().color(QPalette::HighlightedText);
}

QColor Label3D::foreColor2() const
{
    return m_foreColor2.isValid() ? m_foreColor2 : palette().color(QPalette::ButtonText);
}

QColor Label3D::backColor() const
{
    return m_backColor.isValid() ? m_backColor : palette().color(QPalette::Button);
}

void Label3D::notify(const char* property)
{
    update();
    Q_EMIT propertyChanged(QLatin1String(property));
}

void Label3D::setForeColor1(const QColor& back)
{
    m_foreColor1 = back;
    notify(foreColor1Name);
}

void Label3D::setForeColor2(const QColor& front)
{
    m_foreColor2 = front;
    notify(foreColor2Name);
}

void Label3D::setCaption(const QString& caption)
{
    m_caption = caption;
    setAccessibleName(caption);
    updateGeometry();
    notify(captionName);
}

void Label3D::setAlignment(TextAlignment alignment)
{
    m_alignment = alignment;
    notify(alignmentName);
}

void Label3D::setPhase(int phase)
{
    m_phase = static_cast<quint8>(phase);
    layOut();
    notify(phaseName);
}

void Label3D::setBackColor(const QColor& colour)
{
    m_backColor = colour;
    notify(backColorName);
}

void Label3D::setBorderStyle(Border border)
{
    m_border = border;
    notify(borderStyleName);
}

void Label3D::setElided(bool elided)
{
    m_elided = elided;
    update();
}

void Label3D::readProperties(const PropertyBag& bag)
{
    const QSignalBlocker nothingIsSet(this);
    const auto read = [&bag](const char* name, const QVariant& byDefault) {
        return bag.read(QLatin1String(name), byDefault);
    };
    setEnabled(read(enabledName, true).toBool());
    setForeColor1(read(foreColor1Name, QColor(Qt::black)).value<QColor>());
    setForeColor2(read(foreColor2Name, QColor(Qt::white)).value<QColor>());
    setCaption(read(captionName, QStringLiteral("Label3D")).toString());
    setAlignment(static_cast<TextAlignment>(read(alignmentName, 0).toInt()));
    setFont(read(fontName, ambientFont(*this)).value<QFont>());
    setBorderStyle(static_cast<Border>(read(borderStyleName, 0).toInt()));
    setPhase(read(phaseName, 0).toInt());
    setBackColor(read(backColorName, QColor()).value<QColor>());
}

PropertyBag Label3D::writeProperties() const
{
    PropertyBag bag;
    const auto write = [&bag](const char* name, const QVariant& value, const QVariant& byDefault) {
        bag.write(QLatin1String(name), value, byDefault);
    };
    write(enabledName, isEnabledTo(parentWidget()), true);
    write(fontName, font(), ambientFont(*this));
    write(foreColor1Name, m_foreColor1, QColor(Qt::black));
    write(foreColor2Name, m_foreColor2, QColor(Qt::white));
    write(captionName, m_caption, QStringLiteral("Label3D"));
    write(alignmentName, static_cast<int>(m_alignment), 0);
    write(phaseName, int(m_phase), 0);
    write(backColorName, m_backColor, QColor());
    write(borderStyleName, static_cast<int>(m_border), 0);
    return bag;
}

void Label3D::layOut()
{
    if (m_phase > lastPlacedPhase)
        return;
    const int frontX = m_phase & 1;
    const int frontY = m_phase >> 1;
    m_frontOffset = {frontX, frontY};
    m_backOffset = {1 - frontX, 1 - frontY};
}

QSize Label3D::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_caption) + 2, fontMetrics().height() + 1};
}

QSize Label3D::minimumSizeHint() const
{
    return m_elided ? QSize(leastExtent, sizeHint().height()) : sizeHint();
}

/// About one pixel, rounded to device pixels.
qreal Label3D::step() const
{
    return qRound(devicePixelRatioF()) / devicePixelRatioF();
}

void Label3D::paintBorder(QPainter& painter) const
{
    const QRectF layer(QPointF(m_frontOffset) * step(), QSizeF(size()));
    const QRectF inside = layer.adjusted(step(), step(), -step(), -step());
    for (const QRectF& line : {QRectF(layer.topLeft(), inside.topRight()), QRectF(layer.topLeft(), inside.bottomLeft()),
             QRectF(inside.topRight(), layer.bottomRight()), QRectF(inside.bottomLeft(), layer.bottomRight())})
        painter.fillRect(line, foreColor2());
}

void Label3D::paintLayer(QPainter& painter, QPoint offset, const QColor& colour) const
{
    const QRectF layer = QRectF(rect()).translated(QPointF(offset) * step());
    const QString text = m_elided ? fontMetrics().elidedText(m_caption, Qt::ElideRight, width() - 1) : m_caption;
    painter.setPen(isEnabled() ? colour : palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(
        layer, int(qtAlignment(m_alignment) | Qt::AlignTop) | Qt::TextDontClip | Qt::TextIncludeTrailingSpaces, text);
}

void Label3D::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (backColor().alpha() > 0)
        painter.fillRect(rect(), backColor());
    paintLayer(painter, m_backOffset, foreColor1());
    paintLayer(painter, m_frontOffset, foreColor2());
    if (m_border == Border::Single)
        paintBorder(painter);
}

void Label3D::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        notify(enabledName);
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        notify(fontName);
    }
}

bool Label3D::isOnFrontLayer(QPointF position) const
{
    return QRectF(rect()).intersected(QRectF(rect()).translated(m_frontOffset)).contains(position);
}

void Label3D::pass(MouseSignal signal, const QMouseEvent& event, Qt::MouseButtons buttons)
{
    const QPointF at = event.position() - m_frontOffset;
    Q_EMIT(this->*signal)
    (buttonCode(buttons), shiftCode(event.modifiers()), static_cast<float>(at.x()), static_cast<float>(at.y()));
}

void Label3D::mousePressEvent(QMouseEvent* event)
{
    m_held = isOnFrontLayer(event->position());
    event->setAccepted(m_held);
    if (m_held)
        pass(&Label3D::mouseDown, *event, event->button());
}

void Label3D::mouseMoveEvent(QMouseEvent* event)
{
    const bool isOurs = event->buttons() == Qt::NoButton ? isOnFrontLayer(event->position()) : m_held;
    event->setAccepted(isOurs);
    if (isOurs)
        pass(&Label3D::mouseMove, *event, event->buttons());
}

void Label3D::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(m_held);
    if (!m_held)
        return;
    m_held = event->buttons() != Qt::NoButton;
    pass(&Label3D::mouseUp, *event, event->button());
    if (!m_doubleClicked && isOnFrontLayer(event->position()))
        Q_EMIT click();
    m_doubleClicked = false;
}

void Label3D::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_held = isOnFrontLayer(event->position());
    m_doubleClicked = m_held;
    event->setAccepted(m_held);
    if (m_held)
        Q_EMIT dblClick();
}

} // namespace lorvan

#include "look/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace lorvan {
namespace {

QString fileOf(const QString& name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

QByteArray drawingOf(const QString& name, const QColor& colour)
{
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().replace("#000000", colour.name().toLatin1());
}

/// A square of `extent` device pixels.
QPixmap render(const QString& name, const QColor& colour, int extent)
{
    const QString key = QStringLiteral("lorvan %1 %2 %3").arg(name, colour.name()).arg(extent);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(extent, extent);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(drawingOf(name, colour)).render(&painter, QRectF(0, 0, extent, extent));
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

class LineIconEngine : public QIconEngine {
public:
    LineIconEngine(QString name, ColourRole role)
        : m_name(std::move(name))
        , m_role(role)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        paintIcon(*painter, rect, m_name, colour(mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override
    {
        return render(m_name, colour(mode), std::min(size.width(), size.height()));
    }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const int extent = std::min(size.width(), size.height());
        return {extent, extent};
    }

    QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    [[nodiscard]] QColor colour(QIcon::Mode mode) const
    {
        if (mode == QIcon::Selected)
            return Theme::instance().colour(ColourRole::HighlightText);
        return Theme::instance().colour(mode == QIcon::Disabled ? ColourRole::OffText : m_role);
    }

    QString m_name;
    ColourRole m_role;
};

} // namespace

QIcon themedIcon(const QString& name, ColourRole role)
{
    return QFile::exists(fileOf(name)) ? QIcon(new LineIconEngine(name, role)) : QIcon();
}

void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& colour)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const int extent = std::min(rect.width(), rect.height());
    QPixmap pixmap = render(name, colour, qRound(extent * ratio));
    pixmap.setDevicePixelRatio(ratio);
    QRectF square(0, 0, extent, extent);
    square.moveCenter(QRectF(rect).center());
    painter.drawPixmap(square.topLeft(), pixmap);
}

IconView::IconView(const QString& name, ColourRole role, int extent, QWidget* parent)
    : QWidget(parent)
    , m_name(name)
    , m_role(role)
    , m_extent(extent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ColourRole role = isEnabled() ? m_role : ColourRole::OffText;
    QRect square(0, 0, m_extent, m_extent);
    square.moveCenter(rect().center());
    paintIcon(painter, square, m_name, Theme::instance().colour(role));
}

} // namespace lorvan

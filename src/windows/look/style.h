#pragma once

#include <QProxyStyle>

namespace lorvan {

class Theme;

/// The Fusion style with our own fields, buttons, indicators, scroll bars, frames with a title, menus, tooltips, focus
/// rings and message icons. The only place that decides how a toolkit's control is painted.
class Style : public QProxyStyle {
    Q_OBJECT

public:
    explicit Style(Theme& theme);

    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    [[nodiscard]] QRect subElementRect(
        SubElement element, const QStyleOption* option, const QWidget* widget = nullptr) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget = nullptr) const override;
    [[nodiscard]] QSize sizeFromContents(
        ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(
        PixelMetric metric, const QStyleOption* option = nullptr, const QWidget* widget = nullptr) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
        QStyleHintReturn* returned = nullptr) const override;
    [[nodiscard]] QIcon standardIcon(
        StandardPixmap pixmap, const QStyleOption* option = nullptr, const QWidget* widget = nullptr) const override;
    [[nodiscard]] QPixmap standardPixmap(
        StandardPixmap pixmap, const QStyleOption* option = nullptr, const QWidget* widget = nullptr) const override;

private:
    Theme& m_theme;
};

} // namespace lorvan

#pragma once

#include <QColor>
#include <QVariantMap>
#include <QWidget>

namespace lorvan {

/// Named values that hold a control's settings. A value equal to its default is not written.
class PropertyBag {
public:
    PropertyBag() = default;
    explicit PropertyBag(QVariantMap values)
        : m_values(std::move(values))
    {
    }

    [[nodiscard]] QVariant read(const QString& name, const QVariant& byDefault) const
    {
        return m_values.value(name, byDefault);
    }
    void write(const QString& name, const QVariant& value, const QVariant& byDefault);

    [[nodiscard]] const QVariantMap& values() const { return m_values; }

private:
    QVariantMap m_values;
};

/// A caption drawn twice, the back layer one step (15 twips, a pixel) away from the front layer, so that it looks
/// raised or engraved. The phase is the direction in which the back shows: 0 below and to the right, 1 below and to the
/// left, 2 above and to the right, 3 above and to the left; with any other phase the layers stay where they are.
///
/// A new label has the values of one newly placed in a designer (a light edge, dark text); readProperties() with an
/// empty bag gives the stored defaults instead (white on black). Enabled and Font are the widget's own properties.
class Label3D : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor foreColor1 READ foreColor1 WRITE setForeColor1 NOTIFY propertyChanged)
    Q_PROPERTY(QColor foreColor2 READ foreColor2 WRITE setForeColor2 NOTIFY propertyChanged)
    Q_PROPERTY(QString caption READ caption WRITE setCaption NOTIFY propertyChanged)
    Q_PROPERTY(TextAlignment alignment READ alignment WRITE setAlignment NOTIFY propertyChanged)
    Q_PROPERTY(int phase READ phase WRITE setPhase NOTIFY propertyChanged)
    Q_PROPERTY(QColor backColor READ backColor WRITE setBackColor NOTIFY propertyChanged)
    Q_PROPERTY(Border borderStyle READ borderStyle WRITE setBorderStyle NOTIFY propertyChanged)

public:
    enum class TextAlignment { Left = 0, Right = 1, Centre = 2 };
    Q_ENUM(TextAlignment)
    enum class Border { None = 0, Single = 1 };
    Q_ENUM(Border)

    explicit Label3D(QWidget* parent = nullptr);

    [[nodiscard]] QColor foreColor1() const;
    [[nodiscard]] QColor foreColor2() const;
    [[nodiscard]] QString caption() const { return m_caption; }
    [[nodiscard]] TextAlignment alignment() const { return m_alignment; }
    [[nodiscard]] int phase() const { return m_phase; }
    [[nodiscard]] QColor backColor() const;
    [[nodiscard]] Border borderStyle() const { return m_border; }

    void setForeColor1(const QColor& back);
    void setForeColor2(const QColor& front);
    void setCaption(const QString& caption); ///< Also the accessible name.
    void setAlignment(TextAlignment alignment);
    void setPhase(int phase); ///< 0 to 255; the low eight bits of anything else.
    void setBackColor(const QColor& colour); ///< If transparent, the window's background shows through.
    void setBorderStyle(Border border); ///< Around the front layer only, and moving with it.

    void setElided(bool elided); ///< If on, a caption that does not fit ends in an ellipsis; off by default.

    void readProperties(const PropertyBag& bag);
    [[nodiscard]] PropertyBag writeProperties() const;

    [[nodiscard]] QPoint backOffset() const { return m_backOffset; } ///< Position of the back layer, in pixels.
    [[nodiscard]] QPoint frontOffset() const { return m_frontOffset; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    void refresh() { update(); }

Q_SIGNALS:
    /// By the property's stored name: "Caption", "ForeColor1", …
    void propertyChanged(const QString& name);

    void click();
    void dblClick();
    /// `button` is 1 for left, 2 for right, 4 for middle; `shift` 1 for Shift, 2 for Ctrl, 4 for Alt; positions are in
    /// pixels of the front layer. During mouse moves, `button` is the sum of the buttons held down. A press outside the
    /// front layer, and what follows it, is not reported.
    void mouseDown(qint16 button, qint16 shift, float x, float y);
    void mouseMove(qint16 button, qint16 shift, float x, float y);
    void mouseUp(qint16 button, qint16 shift, float x, float y);

protected:
    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    using MouseSignal = void (Label3D::*)(qint16 button, qint16 shift, float x, float y);

    void layOut();
    void pass(MouseSignal signal, const QMouseEvent& event, Qt::MouseButtons buttons);
    void notify(const char* property);
    [[nodiscard]] qreal step() const;
    void paintBorder(QPainter& painter) const;
    void paintLayer(QPainter& painter, QPoint offset, const QColor& colour) const;
    [[nodiscard]] bool isOnFrontLayer(QPointF position) const;

    QString m_caption = QStringLiteral("Label3D");
    QColor m_foreColor1; ///< If invalid, the system's colour is used.
    QColor m_foreColor2;
    QColor m_backColor;
    QPoint m_backOffset;
    QPoint m_frontOffset;
    TextAlignment m_alignment = TextAlignment::Left;
    Border m_border = Border::None;
    quint8 m_phase = 0;
    bool m_elided = false;
    /// A button was pressed on the front layer: everything the mouse does until it is released belongs to this press.
    bool m_held = false;
    bool m_doubleClicked = false;
};

} // namespace lorvan

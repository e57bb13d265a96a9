#pragma once

#include <QColor>
#include <QFrame>

namespace lorvan {

class Label3D;

/// The dark plate that shows the state of a cash day in bright letters. It is as wide as the longer of its two captions
/// needs, so its width never changes.
class StatePlate : public QFrame {
    Q_OBJECT

public:
    StatePlate(const QString& openCaption, const QString& closedCaption, QWidget* parent = nullptr);

    void showOpen(); ///< The open caption, in green.
    void showClosed(); ///< The closed caption, in red.

    /// The tool tip of plate and label; empty for none.
    void explain(const QString& text);

    [[nodiscard]] Label3D* label() const { return m_label; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void dress();
    void show(const QString& caption, QColor front, QColor back);
    void placeLabel();

    QString m_openCaption;
    QString m_closedCaption;
    Label3D* m_label;
};

} // namespace lorvan

#pragma once

#include <QProgressBar>

namespace lorvan {

/// A flat bar of progress. Where the end is not known, a part of it goes on with each step.
class ProgressLine : public QProgressBar {
    Q_OBJECT

public:
    explicit ProgressLine(QWidget* parent = nullptr);

    void step(); ///< A sign of life where the end is not known.

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF filled() const;

    int m_steps = 0;
};

} // namespace lorvan

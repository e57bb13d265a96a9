#pragma once

#include "document/chart.h"

#include <QWidget>

namespace lorvan {

struct ChartLook;

/// Shows a chart in the colours of the theme. One place can be marked, with the mouse or the arrow keys; its amounts
/// are the tooltip and what assistive technology reads. Enter and a double click choose it.
class ChartView : public QWidget {
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent = nullptr);

    /// Marks nothing. The title is the accessible name.
    void setChart(Chart chart, const QString& title);
    [[nodiscard]] const Chart& chart() const { return m_chart; }

    /// Shown in grey while the chart is empty.
    void setEmptyText(const QString& text);

    void mark(int place); ///< -1 for none.
    [[nodiscard]] int marked() const { return m_marked; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void placeMarked(int place); ///< By the user.
    void placeChosen(int place);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] ChartLook chartLook() const;
    [[nodiscard]] QRectF chartArea() const;
    [[nodiscard]] int placeAt(QPointF point) const;
    [[nodiscard]] QString textOf(int place) const;
    void markByUser(int place);

    Chart m_chart;
    QString m_emptyText;
    int m_marked = -1;
};

} // namespace lorvan

#pragma once

#include <QFrame>

#include <array>

class QLabel;

namespace lorvan {

/// The bar with the day's figures: six labels Bar1(1) to Bar1(6), caption and figure in turn. Figures are never cut: if
/// one does not fit beside its caption, all become smaller together. The positions of the separators depend only on the
/// bar's width, not on the figures.
class TotalsBar : public QFrame {
    Q_OBJECT

public:
    explicit TotalsBar(QWidget* parent = nullptr);

    void setFigures(const QString& income, const QString& expense, const QString& balance);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Pair {
        QLabel* caption;
        QLabel* figure;
        qreal factor; ///< Of the figure's font at its full size.
    };

    [[nodiscard]] Pair addPair(int index, const QString& caption, qreal factor);
    void dress();
    void layOut();
    [[nodiscard]] int pairWidth(const Pair& pair, qreal step) const;
    [[nodiscard]] int usualWidth(const Pair& pair) const;
    [[nodiscard]] int widthFor(qreal step) const;
    [[nodiscard]] qreal largestStep() const;
    void placePair(const Pair& pair, qreal step, int left) const;

    std::array<Pair, 3> m_pairs;
    std::array<int, 2> m_separators{};
};

} // namespace lorvan

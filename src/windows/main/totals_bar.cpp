#include "main/totals_bar.h"

#include "look/theme.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace lorvan {
namespace {

constexpr int usualHeight = 46;
constexpr int sideMargin = 12;
constexpr int captionGap = 8;
constexpr int slack = 2; ///< A text's ink may reach beyond its advance.
constexpr int leastGap = 10; ///< On either side of a separator.
constexpr int separatorInset = 12;
constexpr qreal captionFactor = 0.9;
constexpr qreal totalFactor = 1.45;
constexpr qreal balanceFactor = 1.7;
constexpr std::array steps{1.0, 0.85, 0.7, 0.55};

const QString usualFigure = QStringLiteral("-000.000,00");

void colourText(QLabel& label, ColourRole role)
{
    QPalette colours = label.palette();
    colours.setColor(QPalette::WindowText, Theme::instance().colour(role));
    label.setPalette(colours);
}

QFont figureFont(qreal factor)
{
    return Theme::instance().figureFont(factor, QFont::DemiBold);
}

} // namespace

TotalsBar::TotalsBar(QWidget* parent)
    : QFrame(parent)
    , m_pairs{addPair(1, QStringLiteral("Σύνολο Εσόδων "), totalFactor),
          addPair(3, QStringLiteral("Σύνολο Εξόδων  "), totalFactor),
          addPair(5, QStringLiteral("Υπόλοιπο ταμείου "), balanceFactor)}
{
    setObjectName(QStringLiteral("Bar1"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&Theme::instance(), &Theme::changed, this, &TotalsBar::dress);
    dress();
}

TotalsBar::Pair TotalsBar::addPair(int index, const QString& caption, qreal factor)
{
    const auto add = [this](int number, const QString& text) {
        auto* const label = new QLabel(text, this);
        label->setObjectName(QStringLiteral("Bar1(%1)").arg(number));
        label->setTextFormat(Qt::PlainText);
        return label;
    };
    const Pair pair{add(index, caption), add(index + 1, QStringLiteral("0")), factor};
    pair.caption->setBuddy(pair.figure); // which an assistive tool asks for
    return pair;
}

void TotalsBar::setFigures(const QString& income, const QString& expense, const QString& balance)
{
    m_pairs[0].figure->setText(income);
    m_pairs[1].figure->setText(expense);
    m_pairs[2].figure->setText(balance);
    updateGeometry();
    layOut();
}

void TotalsBar::dress()
{
    for (const Pair& pair : m_pairs) {
        pair.caption->setFont(Theme::instance().font(captionFactor));
        colourText(*pair.caption, ColourRole::PageMuted);
    }
    colourText(*m_pairs[0].figure, ColourRole::PageIncome);
    colourText(*m_pairs[1].figure, ColourRole::PageExpense);
    colourText(*m_pairs[2].figure, ColourRole::PageText);
    updateGeometry();
    layOut();
    update();
}

int TotalsBar::pairWidth(const Pair& pair, qreal step) const
{
    const QFontMetrics caption(pair.caption->font());
    const QFontMetrics figure(figureFont(pair.factor * step));
    return caption.horizontalAdvance(pair.caption->text().trimmed()) + captionGap
        + figure.horizontalAdvance(pair.figure->text());
}

/// A pair's share of the bar, before what remains is divided evenly.
int TotalsBar::usualWidth(const Pair& pair) const
{
    const QFontMetrics caption(pair.caption->font());
    return caption.horizontalAdvance(pair.caption->text().trimmed()) + captionGap
        + QFontMetrics(figureFont(pair.factor)).horizontalAdvance(usualFigure);
}

/// The width of the bar from which each pair fits between its separators.
int TotalsBar::widthFor(qreal step) const
{
    int usual = 0;
    int beyond = std::numeric_limits<int>::min();
    for (const Pair& pair : m_pairs) {
        usual += usualWidth(pair);
        beyond = std::max(beyond, pairWidth(pair, step) - usualWidth(pair));
    }
    return usual + static_cast<int>(m_pairs.size()) * beyond + 2 * sideMargin + 4 * leastGap;
}

QSize TotalsBar::sizeHint() const
{
    const int height = QFontMetrics(figureFont(balanceFactor)).height() + captionGap;
    return {widthFor(steps.front()), std::max(usualHeight, height)};
}

QSize TotalsBar::minimumSizeHint() const
{
    return {widthFor(steps.back()), sizeHint().height()};
}

qreal TotalsBar::largestStep() const
{
    const auto fits = [this](qreal step) { return widthFor(step) <= width(); };
    const auto found = std::find_if(steps.begin(), steps.end(), fits);
    return found == steps.end() ? steps.back() : *found;
}

void TotalsBar::layOut()
{
    const qreal step = largestStep();
    const auto& [income, expense, balance] = m_pairs;
    const int usual = usualWidth(income) + usualWidth(expense) + usualWidth(balance);
    const int more = (width() - 2 * sideMargin - 4 * leastGap - usual) / static_cast<int>(m_pairs.size());
    m_separators[0] = sideMargin + usualWidth(income) + more + leastGap;
    m_separators[1] = m_separators[0] + leastGap + usualWidth(expense) + more + leastGap;
    placePair(income, step, sideMargin);
    placePair(expense, step, (m_separators[0] + m_separators[1] - pairWidth(expense, step)) / 2);
    placePair(balance, step, width() - sideMargin - pairWidth(balance, step));
    update();
}

void TotalsBar::placePair(const Pair& pair, qreal step, int left) const
{
    const int captionWidth = pair.caption->sizeHint().width();
    const int figureWidth = QFontMetrics(figureFont(pair.factor * step)).horizontalAdvance(pair.figure->text());
    pair.figure->setFont(figureFont(pair.factor * step));
    pair.caption->setGeometry(left, 1, captionWidth, height() - 1);
    pair.figure->setGeometry(left + pairWidth(pair, step) - figureWidth, 1, figureWidth + slack, height() - 1);
}

void TotalsBar::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    layOut();
}

void TotalsBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    painter.fillRect(rect(), theme.colour(ColourRole::Band));
    painter.fillRect(0, 0, width(), 1, theme.colour(ColourRole::PageLine));
    for (const int left : m_separators)
        painter.fillRect(left, separatorInset, 1, height() - 2 * separatorInset, theme.colour(ColourRole::Edge));
}

} // namespace lorvan

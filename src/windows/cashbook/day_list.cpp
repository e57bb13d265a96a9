#include "cashbook/day_list.h"

#include "cashbook/day_list_delegate.h"
#include "look/theme.h"

#include <QFontMetricsF>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

constexpr int heightOverFont = 3;
constexpr int margin = 1;
constexpr int usualRows = 13;
constexpr int leastRows = 4;
constexpr int largestSpare = 40;
constexpr int charactersForLargerFont = 80;
constexpr std::array fontFactors{1.4, 1.3, 1.2};
constexpr qreal leastFactor = 1.1;
constexpr std::array factorsForLongAmounts{1.1, 1.0, 0.9};

qreal advanceOf(const QFont& font)
{
    return QFontMetricsF(font).horizontalAdvance(QString(day_line::length, u'0')) / day_line::length;
}

int rowHeightFor(const QFont& font)
{
    return QFontMetrics(font).height() + heightOverFont;
}

} // namespace

void DayListModel::setLines(std::vector<DayLine> lines)
{
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

int DayListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant DayListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DayLine& line = m_lines.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return line.text;
    case Qt::UserRole:
        return line.key;
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return line.whole;
    default:
        const auto column = static_cast<std::size_t>(role - DayListModel::role(DayColumn::Number));
        return column < dayColumnCount ? line.cells.at(column) : QVariant();
    }
}

qreal DayLineLayout::left(DayColumn column) const
{
    return inset + widths.startOf(column) * advance + (column > DayColumn::Description ? spare : 0);
}

qreal DayLineLayout::right(DayColumn column) const
{
    return left(column) + widths.of(column) * advance + (column == DayColumn::Description ? spare : 0);
}

qreal DayLineLayout::width() const
{
    return right(DayColumn::Cheque) + inset;
}

DayLineLayout DayLineLayout::forWidth(int available, const QFont& font, const DayWidths& widths)
{
    DayLineLayout layout;
    layout.advance = advanceOf(font);
    layout.widths = widths;
    const int wanted = std::max(largestSpare, widths.missingForDescription());
    layout.spare = std::clamp(available - layout.width(), 0.0, wanted * layout.advance);
    return layout;
}

DayList::DayList(QWidget* parent)
    : RecordList(Moves::Select, parent)
    , m_model(new DayListModel(this))
{
    setItemDelegate(new DayListDelegate(this));
    setModel(m_model);
    setHorizontalScrollMode(ScrollPerPixel);
    setViewportMargins(0, margin, 0, margin);
    connect(this, &QListView::clicked, this, &DayList::clickedLine);
    connect(this, &RecordList::opened, this,
        [this](const QModelIndex& index) { Q_EMIT openedLine(index.data(Qt::UserRole).toLongLong()); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &DayList::columnsChanged);
    connect(&Theme::instance(), &Theme::changed, this, &DayList::layOut);
    layOut();
}

void DayList::setLines(std::vector<DayLine> lines)
{
    m_widths = {};
    for (const DayLine& line : lines)
        m_widths.include(line.cells);
    m_model->setLines(std::move(lines));
    layOut();
}

void DayList::selectLast()
{
    const QModelIndex last = m_model->index(m_model->rowCount() - 1);
    setCurrentIndex(last);
    scrollTo(last);
}

int DayList::rowHeight() const
{
    return rowHeightFor(font());
}

int DayList::scrollWidth() const
{
    const DayLineLayout least = DayLineLayout::forWidth(0, font(), m_widths);
    return m_layout.spare > 0 ? 1 : qCeil(least.width());
}

QSize DayList::sizeHint() const
{
    const QFont font = Theme::instance().fixedFont(leastFactor);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return {qCeil(DayLineLayout::forWidth(0, font, {}).width()) + bar + 2 * frameWidth(),
        usualRows * rowHeightFor(font) + 2 * (margin + frameWidth())};
}

QSize DayList::minimumSizeHint() const
{
    const QFont font = Theme::instance().fixedFont(leastFactor);
    return {200, leastRows * rowHeightFor(font) + 2 * (margin + frameWidth())};
}

QFont DayList::largestFont() const
{
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const QSize available = contentsRect().size() - QSize(bar, 2 * margin);
    // Together with the heading, which shares the space with the list: the choice must not depend on the font that is
    // chosen.
    const int height = available.height() + QFontMetrics(font()).height();
    for (const qreal factor : fontFactors) {
        const QFont font = Theme::instance().fixedFont(factor);
        const qreal line = DayLineLayout::forWidth(0, font, m_widths).width();
        if (std::max(line, charactersForLargerFont * advanceOf(font)) <= available.width()
            && usualRows * rowHeightFor(font) + QFontMetrics(font).height() <= height)
            return font;
    }
    for (const qreal factor : factorsForLongAmounts) {
        const QFont font = Theme::instance().fixedFont(factor);
        if (DayLineLayout::forWidth(0, font, m_widths).width() <= available.width())
            return font;
    }
    return Theme::instance().fixedFont(leastFactor);
}

void DayList::layOut()
{
    const QFont wanted = largestFont();
    if (font() != wanted)
        setFont(wanted);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    m_layout = DayLineLayout::forWidth(contentsRect().width() - bar, wanted, m_widths);
    scheduleDelayedItemsLayout();
    Q_EMIT columnsChanged();
}

void DayList::resizeEvent(QResizeEvent* event)
{
    layOut();
    RecordList::resizeEvent(event);
}

} // namespace lorvan

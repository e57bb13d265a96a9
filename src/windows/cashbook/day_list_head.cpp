#include "cashbook/day_list_head.h"

#include "cashbook/day_list.h"
#include "look/theme.h"

#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>

#include <array>

namespace lorvan {
namespace {

constexpr int gapToList = 4;

struct Word {
    DayColumn column;
    Qt::Alignment alignment;
};

constexpr std::array places{
    Word{DayColumn::Number, Qt::AlignRight},
    Word{DayColumn::Code, Qt::AlignRight},
    Word{DayColumn::Description, Qt::AlignLeft},
    Word{DayColumn::Income, Qt::AlignRight},
    Word{DayColumn::Expense, Qt::AlignRight},
};

} // namespace

DayListHead::DayListHead(const QString& text, DayList& list, QWidget* parent)
    : QLabel(text, parent)
    , m_list(list)
{
    setTextFormat(Qt::PlainText);
    connect(&list, &DayList::columnsChanged, this, &DayListHead::dress);
    dress();
}

void DayListHead::dress()
{
    if (font() != m_list.font())
        setFont(m_list.font());
    update();
}

QSize DayListHead::sizeHint() const
{
    return {1, fontMetrics().height() + gapToList};
}

QSize DayListHead::minimumSizeHint() const
{
    return sizeHint();
}

void DayListHead::paintOver(QPainter& painter, DayColumn column, Qt::Alignment alignment, const QString& word) const
{
    const DayLineLayout& layout = m_list.lineLayout();
    const qreal shift = m_list.frameWidth() - m_list.horizontalScrollBar()->value();
    const QRectF area(shift + layout.left(column), 0, layout.right(column) - layout.left(column), height() - gapToList);
    painter.drawText(area, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, word);
}

void DayListHead::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::instance().colour(ColourRole::PageMuted));
    const QStringList words = text().split(u' ', Qt::SkipEmptyParts);
    const auto count = std::min(places.size(), static_cast<std::size_t>(words.size()));
    for (std::size_t i = 0; i < count; ++i)
        paintOver(painter, places[i].column, places[i].alignment, words.at(static_cast<int>(i)));
}

void MemorandumHead::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::instance().colour(ColourRole::PageMuted));
    paintOver(painter, DayColumn::Memorandum, Qt::AlignRight, text());
}

QWidget* dayListHeading(DayListHead* head, MemorandumHead* memorandum)
{
    auto* const heading = new QWidget;
    auto* const layout = new QGridLayout(heading);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(head, 0, 0);
    layout->addWidget(memorandum, 0, 0);
    return heading;
}

} // namespace lorvan

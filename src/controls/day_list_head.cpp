#include "controls/day_list_head.h"

#include "cashbook/day_view.h"
#include "controls/day_list.h"
#include "controls/theme.h"

#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>

#include <array>

namespace lorvan {
namespace {

constexpr int gapToList = 4;

struct Slice {
    int start;
    int width;
    Qt::Alignment alignment;
};

constexpr std::array slices{
    Slice{0, day_line::numberWidth, Qt::AlignRight},
    Slice{day_line::codeStart, day_line::codeWidth, Qt::AlignRight},
    Slice{day_line::descriptionStart, day_line::descriptionWidth, Qt::AlignLeft},
    Slice{day_line::incomeStart, day_line::amountWidth, Qt::AlignRight},
    Slice{day_line::expenseStart, day_line::amountWidth, Qt::AlignRight},
};

} // namespace

DayListHead::DayListHead(const QString& text, DayList& list, QWidget* parent)
    : QLabel(text, parent)
    , m_list(list)
{
    setTextFormat(Qt::PlainText);
    connect(&list, &DayList::slicesChanged, this, &DayListHead::dress);
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

void DayListHead::paintOver(QPainter& painter, int start, int width, Qt::Alignment alignment, const QString& word) const
{
    const DayLineLayout& layout = m_list.lineLayout();
    const qreal left = m_list.frameWidth() + layout.left(start) - m_list.horizontalScrollBar()->value();
    const QRectF area(left, 0, width * layout.advance, height() - gapToList);
    painter.drawText(area, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, word);
}

void DayListHead::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::instance().colour(ColourRole::PageMuted));
    const QStringList words = text().split(u' ', Qt::SkipEmptyParts);
    const auto count = std::min(slices.size(), static_cast<std::size_t>(words.size()));
    for (std::size_t i = 0; i < count; ++i)
        paintOver(painter, slices[i].start, slices[i].width, slices[i].alignment, words.at(static_cast<int>(i)));
}

void MemorandumHead::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::instance().colour(ColourRole::PageMuted));
    paintOver(painter, day_line::memorandumStart, day_line::memorandumWidth, Qt::AlignRight, text());
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

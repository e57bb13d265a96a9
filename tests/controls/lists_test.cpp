#include "cashbook/day_view.h"
#include "controls/day_list.h"
#include "controls/desktop_font.h"
#include "controls/shown_form.h"
#include "controls/tick_list.h"

#include <QScrollBar>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

std::vector<ListRow> numberedRows(int count)
{
    std::vector<ListRow> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({QStringLiteral("σειρά %1").arg(i), i * 10});
    return rows;
}

std::vector<DayLine> movementLines(int count)
{
    std::vector<DayLine> lines{{QStringLiteral("Υπόλοιπο από την προηγούμενη 0"), QStringLiteral("ολόκληρο"), 0}};
    for (int i = 1; i <= count; ++i)
        lines.push_back({QString(day_line::length, u'x'), QStringLiteral("<b>%1").arg(i), 100 + i});
    return lines;
}

QPoint middleOf(const QListView& list, int row)
{
    return list.visualRect(list.model()->index(row, 0)).center();
}

/// A real double click: press, release, press again, release.
void doubleClick(QListView& list, int row)
{
    const QPoint place = middleOf(list, row);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, place);
}

} // namespace

TEST(PlainList, aDoubleClickIsOneClickAndOneOpening)
{
    ShownForm form;
    auto* const list = form.add(new PlainList);
    list->setRows(numberedRows(5));
    ASSERT_TRUE(form.show());
    EXPECT_FALSE(list->selectionModel()->hasSelection());
    QStringList events;
    QObject::connect(list, &PlainList::clicked, list, [&] { events += QStringLiteral("click"); });
    QObject::connect(list, &PlainList::opened, list,
        [&](const QModelIndex& index) { events += index.data(Qt::UserRole).toString(); });

    doubleClick(*list, 2);
    EXPECT_EQ(events.join(u' '), QStringLiteral("click 30"));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_F2);
    EXPECT_EQ(events.join(u' '), QStringLiteral("click 30 40"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middleOf(*list, 0));
    EXPECT_EQ(events.join(u' '), QStringLiteral("click 30 40 click"));
}

TEST(TickList, clicksToggleAndShiftExtends)
{
    ShownForm form;
    auto* const list = form.add(new TickList);
    list->setRows(numberedRows(6));
    list->setMinimumHeight(250);
    ASSERT_TRUE(form.show());
    const auto click = [list](int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, middleOf(*list, row));
        return list->chosenData();
    };
    using Chosen = std::vector<qint64>;
    EXPECT_EQ(click(4), Chosen({50}));
    EXPECT_EQ(click(1), Chosen({20, 50}));
    EXPECT_EQ(click(4), Chosen({20}));
    EXPECT_EQ(click(3, Qt::ControlModifier), Chosen({20, 40}));
    EXPECT_EQ(click(5, Qt::ShiftModifier), Chosen({20, 40, 50, 60}));
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(list->chosenData(), Chosen({20, 40, 50}));
}

TEST(DayList, tellsClicksAndOpeningsByKey)
{
    ShownForm form;
    auto* const list = form.add(new DayList);
    list->setLines(movementLines(3));
    ASSERT_TRUE(form.show());
    QSignalSpy clicks(list, &DayList::clickedLine);
    QSignalSpy openings(list, &DayList::openedLine);
    doubleClick(*list, 2);
    EXPECT_EQ(clicks.count(), 1);
    ASSERT_EQ(openings.count(), 1);
    EXPECT_EQ(openings.first().at(0).toLongLong(), 102);

    list->selectLast();
    EXPECT_EQ(list->currentIndex().data(Qt::UserRole).toLongLong(), 103);
    QTest::keyClick(list, Qt::Key_F2);
    EXPECT_EQ(openings.last().at(0).toLongLong(), 103);
    EXPECT_EQ(list->currentIndex().data(Qt::AccessibleTextRole), list->currentIndex().data(Qt::ToolTipRole));
    EXPECT_EQ(list->currentIndex().data().toString().size(), day_line::length);
}

TEST(DayList, spareWidthGoesBeforeTheMemorandumUpToFortyCharacters)
{
    const QFont font(QStringLiteral("Liberation Mono"), 11);
    const DayLineLayout tight = DayLineLayout::forWidth(100, font);
    const qreal least = tight.width();
    EXPECT_EQ(tight.spare, 0);
    struct {
        qreal extraCharacters;
        qreal spareCharacters;
    } const cases[] = {{0, 0}, {10, 10}, {40, 40}, {60, 40}};
    for (const auto& [extra, spare] : cases) {
        const auto layout = DayLineLayout::forWidth(qRound(least + extra * tight.advance), font);
        EXPECT_NEAR(layout.spare / layout.advance, spare, 0.2);
        EXPECT_EQ(layout.left(day_line::descriptionStart), tight.left(day_line::descriptionStart));
        EXPECT_NEAR(layout.left(day_line::expenseStart) - tight.left(day_line::expenseStart), layout.spare, 0.01);
    }
}

TEST(DayList, growsItsFontWithTheWindowAndScrollsSidewaysInANarrowOne)
{
    const DesktopFont font(QStringLiteral("Noto Sans"), 10);
    DayList list;
    list.setLines(movementLines(30));
    list.show();
    qreal lastSize = 0;
    for (const QSize size : {QSize(764, 268), QSize(820, 400), QSize(1900, 900)}) {
        list.resize(size);
        QTest::qWait(10);
        EXPECT_GT(list.font().pointSizeF(), lastSize) << size.width();
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0) << size.width();
        EXPECT_LE(list.lineLayout().width(), list.viewport()->width() + 0.5) << size.width();
        lastSize = list.font().pointSizeF();
    }
    list.resize(1900, 200); // wide enough for a larger font, but not high enough for thirteen of its rows
    QTest::qWait(10);
    EXPECT_LT(list.font().pointSizeF(), lastSize);

    list.resize(400, 268);
    QTest::qWait(10);
    EXPECT_GT(list.horizontalScrollBar()->maximum(), 0);
    EXPECT_GE(list.horizontalScrollBar()->maximum() + list.viewport()->width(), qFloor(list.lineLayout().width()));
}

TEST(DayList, keepsItsSlicesWhenTheScrollBarAppears)
{
    DayList list;
    list.resize(764, 268);
    list.show();
    list.setLines(movementLines(2));
    QTest::qWait(10);
    const qreal short_ = list.lineLayout().left(day_line::expenseStart);
    list.setLines(movementLines(60));
    QTest::qWait(10);
    EXPECT_TRUE(list.verticalScrollBar()->isVisible());
    EXPECT_EQ(list.lineLayout().left(day_line::expenseStart), short_);
}

TEST(DayList, theHeadingStandsOverItsSlicesAlsoWhenScrolled)
{
    ShownForm form;
    auto* const list = new DayList;
    const QString text = QStringLiteral("AA    Κωδ.   Περιγραφή                          Έσοδα         Εξοδα");
    auto* const head = new DayListHead(text, *list);
    auto* const memorandum = new MemorandumHead(QStringLiteral("Λ τάξεως"), *list);
    form.add(dayListHeading(head, memorandum));
    form.add(list);
    list->setLines(movementLines(3));
    form.window().resize(400, 300);
    ASSERT_TRUE(form.show());
    EXPECT_EQ(head->text(), text);
    EXPECT_EQ(head->font(), list->font());

    const auto inkColumns = [](QWidget* label) {
        const QImage image = label->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        std::vector<int> columns;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (qGray(image.pixel(x, y)) < 160) {
                    columns.push_back(x);
                    break;
                }
            }
        }
        return columns;
    };
    const int before = inkColumns(memorandum).empty() ? -1 : inkColumns(memorandum).back();
    list->horizontalScrollBar()->setValue(list->horizontalScrollBar()->maximum());
    const int scrolled = list->horizontalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    const std::vector<int> expense = inkColumns(head);
    ASSERT_FALSE(expense.empty());
    const qreal end = list->frameWidth() + list->lineLayout().left(day_line::chequeStart) - scrolled;
    EXPECT_NEAR(expense.back(), end, 3);
    const std::vector<int> after = inkColumns(memorandum);
    ASSERT_FALSE(after.empty());
    EXPECT_NEAR(after.back(), list->frameWidth() + list->lineLayout().left(day_line::incomeStart) - scrolled, 3);
    EXPECT_NE(after.back(), before);
}

} // namespace lorvan::test

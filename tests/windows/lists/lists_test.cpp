#include "cashbook/day_list.h"
#include "controls/choice_list.h"
#include "lists/tick_list.h"
#include "movements/day_view.h"
#include "support/ink.h"
#include "windows/shown_form.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

namespace lorvan::test {
namespace {

const QString cutText = QString("<b>περιγραφή</b>").repeated(30);

std::vector<ListRow> numberedRows(int count)
{
    std::vector<ListRow> rows{{cutText, 10}};
    for (int i = 2; i <= count; ++i)
        rows.push_back({"σειρά", i * 10});
    return rows;
}

std::vector<DayLine> movementLines(int count)
{
    std::vector<DayLine> lines{{"Υπόλοιπο από την προηγούμενη 0", {}, 0, {}}};
    for (int i = 1; i <= count; ++i)
        lines.push_back({QString(day_line::length, u'x'), cutText, 100 + i, {}});
    return lines;
}

QPoint middleOf(const QListView& list, int row)
{
    return list.visualRect(list.model()->index(row, 0)).center();
}

void click(const QListView& list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, middleOf(list, row));
}

/// A real double click: press, release, press again, release.
void doubleClick(const QListView& list, int row)
{
    click(list, row);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, middleOf(list, row));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middleOf(list, row));
}

QString toolTipOver(const QListView& list, int row)
{
    const QPoint place = middleOf(list, row);
    QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list.viewport(), &event);
    return QToolTip::text();
}

constexpr int lightestText = 160; // lines and grounds are lighter

/// The last column of a heading in which something is written.
int lastInkOf(QWidget& heading)
{
    return inkIn(heading.grab().toImage(), {}, lightestText).right();
}

/// A plain list of five rows and a day of three movements, below one another.
class Lists : public testing::Test {
protected:
    void SetUp() override
    {
        plain->setRows(numberedRows(5));
        day->setLines(movementLines(3));
        form.show();
    }

    ShownForm form;
    PlainList* plain = form.add(new PlainList);
    DayList* day = form.add(new DayList);
};

} // namespace

TEST_F(Lists, aDoubleClickIsOneClickAndOneOpening)
{
    QStringList events;
    QObject::connect(plain, &PlainList::clicked, plain, [&] { events += "click"; });
    QObject::connect(plain, &PlainList::opened, plain,
        [&](const QModelIndex& index) { events += index.data(Qt::UserRole).toString(); });
    doubleClick(*plain, 2);
    QTest::keyClick(plain, Qt::Key_Down);
    QTest::keyClick(plain, Qt::Key_F2);
    click(*plain, 0);
    EXPECT_EQ(events.join(u' '), "click 30 click 40 click");

    QSignalSpy clicks(day, &DayList::clickedLine);
    QSignalSpy openings(day, &DayList::openedLine);
    doubleClick(*day, 2);
    EXPECT_EQ(clicks.count(), 1);
    day->selectLast();
    QTest::keyClick(day, Qt::Key_F2);
    ASSERT_EQ(openings.count(), 2);
    EXPECT_EQ(openings.first().at(0).toLongLong(), 102);
    EXPECT_EQ(openings.last().at(0).toLongLong(), 103);
}

TEST_F(Lists, tellACutRowInFullAndAsPlainText)
{
    EXPECT_EQ(toolTipOver(*plain, 1), QString());
    EXPECT_EQ(toolTipOver(*plain, 0), Qt::convertFromPlainText(cutText));
    QToolTip::showText({}, QString());
    EXPECT_EQ(toolTipOver(*day, 1), Qt::convertFromPlainText(cutText));
}

TEST(TickList, clicksToggleAndShiftExtends)
{
    ShownForm form;
    auto* const list = form.add(new TickList);
    list->setRows(numberedRows(6));
    list->setMinimumHeight(250);
    form.show();
    struct {
        int row;
        Qt::KeyboardModifier key;
        std::vector<qint64> chosen;
    } const clicks[] = {{4, Qt::NoModifier, {50}}, {1, Qt::NoModifier, {20, 50}}, {4, Qt::NoModifier, {20}},
        {3, Qt::ControlModifier, {20, 40}}, {5, Qt::ShiftModifier, {20, 40, 50, 60}}};
    for (const auto& [row, key, chosen] : clicks) {
        click(*list, row, key);
        EXPECT_EQ(list->chosenData(), chosen) << row;
    }
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(list->chosenData(), (std::vector<qint64>{20, 40, 50}));
}

TEST(TickList, longRowsAreReadByKeyboardWhereItScrollsSideways)
{
    ShownForm form;
    auto* const list = form.add(new TickList);
    list->setScrollsSideways();
    list->setRows(numberedRows(6));
    form.show();
    QScrollBar* const bar = list->horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_GE(bar->maximum() + list->viewport()->width(), list->fontMetrics().horizontalAdvance(cutText));
    for (int i = 0; bar->value() < bar->maximum() && i < 500; ++i)
        QTest::keyClick(list, Qt::Key_Right);
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(toolTipOver(*list, 0), Qt::convertFromPlainText(cutText));
    QTest::keyClick(list, Qt::Key_Left);
    click(*list, 1);
    EXPECT_LT(bar->value(), bar->maximum());
    EXPECT_GT(bar->value(), 0) << "a click moves nothing";
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(bar->value(), 0) << "another row begins at its beginning";
}

TEST(ChoiceList, isSearchedAndChosenFromByTyping)
{
    ShownForm form;
    auto* const choice =
        form.add(new ChoiceList(PlainList::Face::Desktop, {{}, "none", "%1 of %2", "%1 from %2", {}, {}, "no rows"}));
    choice->setObjectNames("rows", 1);
    EXPECT_EQ(choice->list()->accessibleDescription(), "no rows");
    choice->setRows(
        {{"  100 ΠΩΛΗΣΕΙΣ", 100}, {"  110 Αγορές", 110}, {"  211 ΠΩΛΗΤΕΣ", 211}, {"  300 Αμοιβή πωλητών", 300}});
    EXPECT_EQ(choice->list()->accessibleDescription(), QString());
    form.show();
    auto* const field = choice->findChild<QWidget*>("findRow(1)");
    const auto* const count = choice->findChild<QLabel*>("chosenCount(1)");
    // What is typed, the keys after it, and what is chosen then.
    struct {
        const char16_t* typed;
        std::vector<Qt::Key> keys;
        std::vector<qint64> chosen;
        const char* count;
    } const steps[] = {
        {u"πωλητ", {Qt::Key_Return}, {211}, "1 of 4"}, // accents and letter case do not count
        {u"πωλ", {Qt::Key_Down, Qt::Key_Return}, {211, 300}, "2 from 4"},
        {u"πωλ", {Qt::Key_Down, Qt::Key_Return}, {100, 211, 300}, "3 from 4"}, // round at the end
        {u"11", {Qt::Key_Return}, {100, 110, 211, 300}, "4 from 4"}, // the beginning of a number before its middle
        {u"xx", {Qt::Key_Return}, {100, 110, 211, 300}, "Δεν βρέθηκε: xx"},
        {u"", {Qt::Key_Up, Qt::Key_Return}, {110, 211, 300}, "3 from 4"},
    };
    choice->list()->setFocus();
    for (const auto& [typed, keys, chosen, text] : steps) {
        if (*typed == u'\0')
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
        for (const QChar c : QString::fromUtf16(typed))
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c), {});
        for (const Qt::Key key : keys)
            QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(choice->chosenData(), chosen) << text;
        EXPECT_EQ(count->text(), text);
        EXPECT_EQ(QApplication::focusWidget(), field);
    }
    const auto shown = [&] {
        QStringList rows;
        for (int row = 0; row < 4; ++row)
            rows += choice->list()->isRowHidden(row) ? QString() : QString::number(row);
        return rows.join(QString());
    };
    QTest::keyClicks(field, "30");
    EXPECT_EQ(shown(), "123") << "chosen rows stay";
    choice->findChild<QAbstractButton*>("chooseNone(1)")->click();
    EXPECT_EQ(shown(), "3");
    choice->findChild<QAbstractButton*>("chooseAll(1)")->click();
    EXPECT_EQ(choice->chosenData(), std::vector<qint64>{300});
    choice->list()->setFocus();
    EXPECT_EQ(shown(), "3") << "also for a click into the list";
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(shown(), "0123");
    field->setFocus();
    const int width = choice->minimumSizeHint().width();
    QTest::keyClicks(field, QString(200, u'x'));
    EXPECT_TRUE(count->text().startsWith("Δεν βρέθηκε: xx"));
    EXPECT_LE(choice->minimumSizeHint().width(), width);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), choice->list());
    choice->findChild<QAbstractButton*>("chooseNone(1)")->click();
    EXPECT_EQ(count->text(), "none");
    choice->findChild<QAbstractButton*>("chooseAll(1)")->click();
    EXPECT_EQ(choice->chosenData().size(), 4);
}

TEST(DayList, growsItsFontWithTheWindowAndScrollsSidewaysInANarrowOne)
{
    const DesktopFont font("Noto Sans", 10);
    DayList list;
    list.setLines(movementLines(30));
    list.show();
    const auto fontAt = [&list](int width, int height) {
        list.resize(width, height);
        QTest::qWait(10);
        const int reached = list.horizontalScrollBar()->maximum() + list.viewport()->width();
        EXPECT_GE(reached, qFloor(list.lineLayout().width())) << width;
        EXPECT_EQ(list.horizontalScrollBar()->maximum() > 0, width == 400) << width;
        return list.font().pointSizeF();
    };
    const qreal small = fontAt(764, 268);
    const qreal large = fontAt(1900, 900);
    EXPECT_GT(large, small);
    EXPECT_LT(fontAt(1900, 200), large) << "not high enough for thirteen of its rows";
    EXPECT_EQ(fontAt(400, 268), small);
}

TEST(DayList, paintsWholeAmountsAndAsMuchOfTheDescriptionAsThereIsRoomFor)
{
    const DesktopFont font("Noto Sans", 10);
    DayList list;
    const QString description(150, u'M');
    list.setLines({{{}, {}, 1, {u"1"_qs, u"1"_qs, description, {}, u"0"_qs, u"0"_qs, {}}},
        {{}, {}, 2, {u"2"_qs, u"1"_qs, description, u"922.337.203.685.477,58"_qs, u"0"_qs, u"0"_qs, {}}}});
    list.resize(1900, 900);
    list.show();
    const DayLineLayout& layout = list.lineLayout();
    // The columns of the row that are without ink between the description and the next text.
    const auto gapAfter = [&](int row, DayColumn next, int characters) {
        const QRect line = list.visualRect(list.model()->index(row, 0));
        const QImage image = list.viewport()->grab(line).toImage();
        const int end = qFloor(layout.right(next) - characters * layout.advance);
        return (end - inkIn(image, QRect(0, 4, end, image.height() - 8), lightestText).right()) / layout.advance;
    };
    EXPECT_NEAR(gapAfter(0, DayColumn::Income, 1), 1, 1) << "on over the empty memorandum column";
    EXPECT_NEAR(gapAfter(1, DayColumn::Memorandum, 22), 1, 1);
}

TEST(DayList, theHeadingStandsOverItsColumnsAlsoWhenScrolled)
{
    ShownForm form;
    auto* const list = new DayList;
    const QString text = "AA    Κωδ.   Περιγραφή                          Έσοδα         Εξοδα";
    auto* const head = new DayListHead(text, *list);
    auto* const memorandum = new MemorandumHead("Λ τάξεως", *list);
    form.add(dayListHeading(head, memorandum));
    form.add(list);
    list->setLines(movementLines(3));
    form.window().resize(400, 300);
    form.show();
    list->horizontalScrollBar()->setValue(list->horizontalScrollBar()->maximum());
    ASSERT_GT(list->horizontalScrollBar()->value(), 0);
    const int shift = list->frameWidth() - list->horizontalScrollBar()->value();
    EXPECT_NEAR(lastInkOf(*head), list->lineLayout().right(DayColumn::Expense) + shift, 3);
    EXPECT_NEAR(lastInkOf(*memorandum), list->lineLayout().right(DayColumn::Memorandum) + shift, 3);
}

} // namespace lorvan::test

#include "cashbook/cash_book.h"
#include "figures/card_window.h"
#include "figures/chart_view.h"
#include "figures/picture_window.h"
#include "preview/ektypvsh.h"
#include "windows/main_window_test.h"

#include <QTreeView>

#include <algorithm>

namespace lorvan::test {
namespace {

class FiguresWindowTest : public MainWindowTest {
protected:
    FiguresWindowTest()
    {
        Book opened = book.open();
        CashBook cash(opened, byAll());
        (void)cash.insert(expenseOf(today.addMonths(-1), cents(1'200), "νερό"));
        (void)cash.insert(incomeOf(today, cents(5'000)));
    }

    template <typename Window> Window& opened(const QString& list) const
    {
        auto* const found = window().template findChild<Window*>();
        waitForActive(*found);
        QTreeView& view = Driver(*found).template find<QTreeView>(list);
        EXPECT_TRUE(comesTrue([&] { return view.model()->rowCount() > 0; }));
        return *found;
    }
    static QString row(QWidget& there, const QString& list, int number)
    {
        QStringList cells;
        const QAbstractItemModel& model = *Driver(there).find<QTreeView>(list).model();
        for (int column = 0; column < model.columnCount(); ++column)
            cells += model.index(number, column).data().toString();
        return cells.join('|');
    }
};

} // namespace

TEST_F(FiguresWindowTest, ThePictureLeadsFromTheYearToTheDay)
{
    start();
    user().press(Qt::Key_G, Qt::ControlModifier);
    auto& picture = opened<PictureWindow>("figures");
    EXPECT_EQ(row(picture, "figures", 2), "Μάρτιος 2024|50,00|0,00|38,00|0,00|0,00|");
    const Driver there(picture);
    auto& chart = there.find<ChartView>("chart");
    EXPECT_TRUE(chart.hasFocus());
    for (int step = 0; step < 3; ++step)
        there.press(Qt::Key_Right);
    EXPECT_TRUE(chart.accessibleDescription().contains("Έσοδα: 50,00")) << chart.accessibleDescription().toStdString();
    there.press(Qt::Key_Return);
    ASSERT_TRUE(comesTrue([&] { return row(picture, "figures", 0).startsWith("1-3-2024"); }));
    there.press(Qt::Key_Left, Qt::AltModifier);
    ASSERT_TRUE(comesTrue([&] { return row(picture, "figures", 2).startsWith("Μάρτιος 2024"); }));
    for (int step = 0; step < 3; ++step)
        there.press(Qt::Key_Right);
    there.press(Qt::Key_Return);
    ASSERT_TRUE(comesTrue([&] { return row(picture, "figures", 0).startsWith("1-3-2024"); }));
    there.press(Qt::Key_PageUp);
    ASSERT_TRUE(comesTrue([&] { return row(picture, "figures", 14) == "15-2-2024|0,00|12,00|-12,00|0,00|0,00|"; }))
        << row(picture, "figures", 14).toStdString();
    there.press(Qt::Key_P, Qt::ControlModifier);
    const auto isPreview = [](const QWidget* each) { return each->isVisible() && qobject_cast<const Ektypvsh*>(each); };
    EXPECT_TRUE(comesTrue([&] { return std::ranges::any_of(QApplication::topLevelWidgets(), isPreview); }));
    waitForActive(picture);
    for (int step = 0; step < 15; ++step)
        there.press(Qt::Key_Right);
    there.press(Qt::Key_Return);
    EXPECT_TRUE(comesTrue([&] { return user().field(date).text() == "15-02-2024"; }));
    waitForActive(window());
    user().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(picture.isVisible());
    EXPECT_EQ(user().field(date).text(), "15-03-2024");
}

TEST_F(FiguresWindowTest, ACardOpensForTheNumberTypedAndLeadsToTheDay)
{
    start();
    user().type("200");
    user().press(Qt::Key_K, Qt::ControlModifier);
    auto& card = opened<CardWindow>("movements");
    EXPECT_EQ(Driver(card).text("title"), "200 Προμήθειες");
    EXPECT_EQ(row(card, "movements", 0), "15-02-2024|νερό|0,00|12,00");
    const Driver there(card);
    there.press(Qt::Key_Tab);
    there.press(Qt::Key_Return);
    EXPECT_TRUE(comesTrue([&] { return user().field(date).text() == "15-02-2024"; }));
    user().press(Qt::Key_Left, Qt::AltModifier);
    ASSERT_TRUE(card.isVisible());
    there.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_FALSE(card.isVisible());
    EXPECT_EQ(user().field(description).text(), "νερό");
    user().press(Qt::Key_K, Qt::ControlModifier);
    there.press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(card.isVisible());
}

} // namespace lorvan::test

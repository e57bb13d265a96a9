#include "windows/main_window_test.h"

#include "cashbook/counted_cash.h"
#include "preview/ektypvsh.h"

namespace lorvan::test {
namespace {

class ClosingSheetWindows : public MainWindowTest {
protected:
    [[nodiscard]] static Ektypvsh* preview()
    {
        for (QWidget* const each : QApplication::topLevelWidgets()) {
            if (auto* const frame = qobject_cast<Ektypvsh*>(each); frame && frame->isVisible())
                return frame;
        }
        return nullptr;
    }
    void count(const std::function<void(const Driver& window)>& work)
    {
        boxes.whenShown("count", [work](QWidget& shown) { work(Driver(shown)); });
    }
    [[nodiscard]] QString counted() const
    {
        Connection auxiliary = book.openAuxiliary();
        return valueOf(auxiliary, "SELECT counted FROM seals ORDER BY id DESC LIMIT 1");
    }
};

} // namespace

TEST_F(ClosingSheetWindows, areOfferedAfterAClosingAndKeepWhatIsCounted)
{
    start(allRights);
    typeMovement("100", "Α", "61,23");
    press(insert);
    EXPECT_FALSE(user().find("closingSheet").isVisible());
    boxes.expect(information("Φύλλο κλεισίματος", "Η ημέρα 15-03-2024 δεν έχει κλείσει."));
    window().openClosingSheet();
    const int below = user().find("List1").mapTo(&window(), QPoint()).y();
    boxes.expect(okCancel(QMessageBox::Question, "Κλείσιμο ταμείου", "Να κλείσω το ταμείο;", QMessageBox::Ok));
    press(closeCash);
    EXPECT_TRUE(notice().startsWith("Η ημέρα 15-03-2024 έκλεισε, κωδικός ελέγχου ")) << notice();
    EXPECT_EQ(user().find("List1").mapTo(&window(), QPoint()).y(), below) << "nothing moves";
    const QString code = notice().right(12);

    count([](const Driver& window) {
        EXPECT_EQ(window.text("difference"), "-61,23");
        window.type("\n\n\nx1\n1x");
        window.press(Qt::Key_Down);
        window.press(Qt::Key_Up);
        EXPECT_EQ(window.focusName(), "pieces(4)");
        EXPECT_EQ(
            window.text("amount(4)") + ' ' + window.text("sum") + ' ' + window.text("difference"), "20,00 70,00 8,77");
        window.press(Qt::Key_Escape);
    });
    user().click(user().find("closingSheet"));
    EXPECT_EQ(preview(), nullptr) << "Escape wants no sheet";
    EXPECT_EQ(counted(), "");

    for (const auto& [button, kept] : {std::pair("skip", ""), {"keep", R"({"20000":3})"}}) {
        count([name = button](const Driver& window) {
            window.type("\n3");
            window.click(window.find(name));
        });
        window().openClosingSheet();
        ASSERT_NE(preview(), nullptr) << button;
        EXPECT_EQ(counted(), kept);
    }
    waitForActive(window());
    user().enter(date, "14-03-2024\n");
    user().enter(date, "15-03-2024\n");
    EXPECT_EQ(user().find("Label3D1(3)").toolTip(), "Κωδικός ελέγχου " + code + ", έκδοση 1");
    start(noRights);
    EXPECT_EQ(preview(), nullptr);
    window().openClosingSheet();
    EXPECT_NE(preview(), nullptr) << "who may not close is not asked for the cash";
}

} // namespace lorvan::test

#include "windows/every_window.h"
#include "windows/main_window_test.h"

#include "controls/command_button.h"

#include <QHelpEvent>
#include <QShortcut>
#include <QToolTip>

namespace lorvan::test {
namespace {

constexpr auto epsilon = static_cast<Qt::Key>(0x395);
constexpr auto omega = static_cast<Qt::Key>(0x3A9);

class AltKeysTest : public MainWindowTest {
protected:
    [[nodiscard]] int movements() const { return stored("SELECT count(*) FROM kinhseis").toInt(); }
};

QString tipOf(QWidget& widget)
{
    QHelpEvent asked(QEvent::ToolTip, widget.rect().center(), widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &asked);
    return QToolTip::text();
}

/// Buttons with a caption that have no key, or the key of another one that is seen with them.
QString withoutAKeyOfItsOwn(const QWidget& window)
{
    QStringList found, keys;
    for (const auto* const button : window.findChildren<CommandButton*>()) {
        const auto shortcuts = button->findChildren<QShortcut*>();
        const QString text = button->text();
        const bool hasLetters = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
        if (!button->isVisible() || !hasLetters || button->window() != &window || !button->shortcut().isEmpty())
            continue;
        if (shortcuts.isEmpty() || keys.contains(shortcuts.last()->key().toString()))
            found += button->objectName() + u' ' + text;
        else
            keys += shortcuts.last()->key().toString();
    }
    return found.join(u'\n');
}

} // namespace

TEST_F(AltKeysTest, aLetterPressesTheButtonAsAClickDoes)
{
    start(allRights);
    typeMovement("100", "Πώληση", "12,50");
    const QString caption = user().command(insert).text();
    user().press(epsilon, Qt::AltModifier);
    EXPECT_EQ(movements(), 1);
    typeMovement("100", "Πώληση", "7");
    user().press(Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(movements(), 2);
    EXPECT_EQ(user().command(insert).text(), caption);
    EXPECT_EQ(tipOf(user().command(insert)), "Εισαγωγή των στοιχείων της αγοράς (Ctrl+Enter, Alt+Ε)");

    chooseCode("100");
    user().type("Πώληση\n1,2,3");
    boxes.expect(warningWith("1,2,3"));
    user().press(epsilon, Qt::AltModifier);
    EXPECT_EQ(movements(), 2);
    EXPECT_EQ(user().focusName(), "Text1(2)");
    user().type("3");
    user().press(epsilon, Qt::AltModifier);
    EXPECT_EQ(movements(), 3);
}

TEST_F(AltKeysTest, whatIsNoKeyTypesNothing)
{
    start(allRights);
    user().goTo(user().field(description));
    user().press(omega, Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, window().windowHandle(), omega, "ω", Qt::AltModifier);
    EXPECT_EQ(user().field(description).text(), QString());
}

TEST_F(AltKeysTest, aButtonThatComesLaterHasOneToo)
{
    addMovement(incomeOf(today, cents(100), "έσοδα"));
    start(allRights);
    user().press(Qt::Key_F, Qt::ControlModifier);
    auto& search = user().find("search");
    const Driver there(search);
    there.type("έσοδα");
    ASSERT_TRUE(comesTrue([&search] { return search.findChild<QWidget*>("meaning(0)") != nullptr; }));
    EXPECT_EQ(withoutAKeyOfItsOwn(search), QString());
    EXPECT_TRUE(tipOf(there.find("meaning(0)")).contains("Alt+"));
}

TEST_F(AltKeysTest, everyWindowGivesEachButtonItsOwn)
{
    start(allRights);
    addMovement(incomeOf(today, cents(100)));
    for (const Tab tab : {CashTab, CodesTab, PrintingTab}) {
        selectTab(tab);
        EXPECT_EQ(withoutAKeyOfItsOwn(window()), QString()) << tab;
    }
    const auto look = [](QWidget& window) {
        showActive(window);
        EXPECT_EQ(withoutAKeyOfItsOwn(window), QString()) << window.objectName();
    };
    visitWindowsBeside(book, look);
    visitWindowsOfTheDoor(book, look);
}

} // namespace lorvan::test

#include "controls/action_gate.h"

#include "look/busy_pointer.h"
#include "windows/box_script.h"

#include <QPushButton>

namespace lorvan::test {
namespace {

/// A window with one button; what happens is noted letter by letter.
class ActionGateTest : public testing::Test {
protected:
    void SetUp() override { window.show(); }

    [[nodiscard]] ActionGate::Step note(char letter)
    {
        return [this, letter] { happened += BusyPointer::isShown() ? letter : static_cast<char>(letter - 'A' + 'a'); };
    }
    [[nodiscard]] ActionGate::Condition note(char letter, bool answer)
    {
        return [this, letter, answer] {
            note(letter)();
            return answer;
        };
    }
    [[nodiscard]] std::string afterClick()
    {
        happened.clear();
        button.click();
        return happened;
    }

    QWidget window;
    QPushButton button{&window};
    std::string happened;
    ActionGate gate{&window, ActionGate::Opened::OnItsOwn, note('B'), note('E')};
    BoxScript boxes;
};

} // namespace

TEST_F(ActionGateTest, asksInOrderAndShowsTheBusyPointerUntilTheEnd)
{
    gate.connect(&button, {note('S', true), note('M', true)}, note('A'));
    EXPECT_EQ(afterClick(), "bSMAE");
    const BusyPointer others;
    EXPECT_EQ(afterClick(), "");
    const OrdinaryPointer asking;
    EXPECT_EQ(afterClick(), "") << "the action that asks still runs";
}

TEST_F(ActionGateTest, runsNothingThatIsRefusedOrNoLongerOffered)
{
    gate.connect(&button, {note('S', false), note('M', true)}, note('A'));
    EXPECT_EQ(afterClick(), "bSE");
    button.disconnect();
    gate.connect(&button, {{}, note('M', false)}, note('A'));
    EXPECT_EQ(afterClick(), "bME");
    button.disconnect();
    const auto disables = [this] {
        button.setEnabled(false);
        return true;
    };
    gate.connect(&button, {disables, note('M', true)}, note('A'));
    EXPECT_EQ(afterClick(), "bE");
}

TEST_F(ActionGateTest, opensAWindowAfterTheBusyPointerAndTellsFailuresThere)
{
    gate.connectWindow(&button, {{}, note('M', true)}, [this] {
        note('A')();
        throw std::runtime_error("full");
    });
    boxes.expect(partly(warning("Προσοχή", "full")));
    EXPECT_EQ(afterClick(), "bMEae");
}

TEST_F(ActionGateTest, inAWindowThatAnActionOpensOnlyTheBusyPointerKeepsOut)
{
    const ActionGate inner(&window, ActionGate::Opened::InAnAction);
    inner.connect(&button, {}, note('A'));
    const BusyPointer others;
    EXPECT_EQ(afterClick(), "");
    const OrdinaryPointer asking;
    EXPECT_EQ(afterClick(), "A");
    inner.runQuick(note('Q'));
    EXPECT_EQ(happened, "AQ");
}

} // namespace lorvan::test

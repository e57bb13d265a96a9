#include "controls/entry_field.h"
#include "windows/shown_form.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QStyleHints>

namespace lorvan::test {

TEST(EntryField, typedCharactersPassTheFieldsRule)
{
    const struct {
        TypingRule rule;
        const char* keys;
        const char* shown;
        Qt::KeyboardModifiers modifiers;
    } cases[] = {
        {TypingRule::Amount, "12.5", "12,5", Qt::KeypadModifier},
        {TypingRule::Capitals, "aα€", "", Qt::AltModifier},
        {TypingRule::Amount, "a5", "", Qt::AltModifier | Qt::ControlModifier},
        {TypingRule::Date, "1.", "", Qt::MetaModifier},
        {TypingRule::Capitals, "a€", "A€", Qt::GroupSwitchModifier},
    };
    for (const auto& [rule, keys, shown, modifiers] : cases) {
        EntryField field(rule);
        for (const QChar c : QString(keys))
            QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(c), modifiers);
        EXPECT_EQ(field.text(), shown);
    }
    EntryField capitals(TypingRule::Capitals);
    QInputMethodEvent commit;
    commit.setCommitString("ή");
    QCoreApplication::sendEvent(&capitals, &commit);
    EXPECT_EQ(capitals.text(), "Ή");
}

TEST(EntryField, commandsAndPastedTextPassUntouched)
{
    EntryField field(TypingRule::Amount);
    QGuiApplication::clipboard()->setText("1.234,50 €");
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "1.234,50 €");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), "1.234,50 ");
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    field.setReadOnly(true);
    QTest::keyClicks(&field, "5");
    EXPECT_EQ(field.text(), QString());
}

TEST(EntryField, onlyGoingToAnotherFieldIsLeaving)
{
    const std::pair<Qt::FocusReason, int> cases[] = {{Qt::TabFocusReason, 1}, {Qt::BacktabFocusReason, 1},
        {Qt::MouseFocusReason, 1}, {Qt::OtherFocusReason, 1}, {Qt::PopupFocusReason, 0},
        {Qt::ActiveWindowFocusReason, 0}, {Qt::MenuBarFocusReason, 0}};
    for (const auto& [reason, expected] : cases) {
        EntryField field(TypingRule::Any);
        field.setText("31-12-2025");
        QSignalSpy lefts(&field, &EntryField::left);
        QFocusEvent in(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(&field, &in);
        EXPECT_EQ(field.hasSelectedText(), expected == 1) << reason;
        QFocusEvent out(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&field, &out);
        EXPECT_EQ(lefts.count(), expected) << reason;
    }
}

TEST(EntryField, aClickIntoItSelectsAllAndTheNextOneSetsTheCursor)
{
    ShownForm form;
    form.add(new EntryField(TypingRule::Any));
    auto* const field = form.add(new EntryField(TypingRule::Any));
    field->setText("21-11-2025");
    form.show();
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_EQ(field->selectedText(), field->text());
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_FALSE(field->hasSelectedText());
}

TEST(EntryField, anAmountFieldIsWideEnoughForTheLongestAmount)
{
    const DesktopFont font("Noto Sans", 10);
    ShownForm form;
    auto* const field = form.add(new EntryField(TypingRule::Amount));
    field->setRightAligned();
    field->setLeastWidth(104);
    form.show();
    for (const char* const amount : {"999.999,00", "-922.337.203.685.477,58", "0"}) {
        field->setText(amount);
        const int text = field->fontMetrics().horizontalAdvance(field->text());
        EXPECT_EQ(field->minimumWidth() > 104, text > 104) << amount;
        EXPECT_GT(field->minimumWidth(), text) << amount;
    }
}

} // namespace lorvan::test

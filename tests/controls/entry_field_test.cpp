#include "controls/entry_field.h"
#include "controls/shown_form.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QStyleHints>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

struct Typing {
    TypingRule rule;
    const char* keys;
    const char* shown;
};

void type(QWidget& field, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(c), modifiers);
}

} // namespace

TEST(EntryField, typedCharactersPassTheFieldsRule)
{
    const Typing cases[] = {
        {TypingRule::Date, "12.03/2005", "12-03-2005"},
        {TypingRule::Date, "1a2 3,4:5", "12-3,45"},
        {TypingRule::Amount, "1.234.5", "1,234,5"},
        {TypingRule::Amount, "-7x", ",7,"},
        {TypingRule::Capitals, "άλφα beta ς", "ΆΛΦΑ BETA Σ"},
        {TypingRule::OpeningDate, "31.10", "31-10"},
        {TypingRule::OpeningAmount, "-8412.36", "-8412,36"},
        {TypingRule::Any, "α.b-1", "α.b-1"},
    };
    for (const Typing& typing : cases) {
        EntryField field(typing.rule);
        type(field, QString::fromUtf8(typing.keys));
        EXPECT_EQ(field.text(), QString::fromUtf8(typing.shown));
    }
}

TEST(EntryField, keypadAndInputMethodAreTypedToo)
{
    EntryField field(TypingRule::Amount);
    type(field, QStringLiteral("12.5"), Qt::KeypadModifier);
    EXPECT_EQ(field.text(), QStringLiteral("12,5"));

    EntryField capitals(TypingRule::Capitals);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("ή"));
    QCoreApplication::sendEvent(&capitals, &commit);
    EXPECT_EQ(capitals.text(), QStringLiteral("Ή"));
}

TEST(EntryField, commandsAndPastedTextPassUntouched)
{
    EntryField field(TypingRule::Amount);
    QGuiApplication::clipboard()->setText(QStringLiteral("1.234,50 €"));
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QStringLiteral("1.234,50 €"));
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), QStringLiteral("1.234,50 "));
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), QString());
    field.setReadOnly(true);
    type(field, QStringLiteral("5"));
    EXPECT_EQ(field.text(), QString());
}

TEST(EntryField, enterGoesOnAsTabDoes)
{
    ShownForm form;
    auto* const first = form.add(new EntryField(TypingRule::Any));
    form.add(new EntryField(TypingRule::Any))->setEnabled(false);
    form.add(new EntryField(TypingRule::Any))->hide();
    auto* const last = form.add(new EntryField(TypingRule::Any));
    ASSERT_TRUE(form.show());
    QSignalSpy lefts(first, &EntryField::left);
    QSignalSpy returns(first, &EntryField::returnPressed);

    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        first->setFocus();
        last->setText(QStringLiteral("κείμενο"));
        QTest::keyClick(first, enter, enter == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_TRUE(last->hasFocus());
        EXPECT_EQ(last->selectedText(), QStringLiteral("κείμενο"));
    }
    EXPECT_EQ(lefts.count(), 2);
    EXPECT_EQ(returns.count(), 0);
}

TEST(EntryField, onlyGoingToAnotherFieldIsLeaving)
{
    const std::pair<Qt::FocusReason, int> cases[] = {{Qt::TabFocusReason, 1}, {Qt::BacktabFocusReason, 1},
        {Qt::MouseFocusReason, 1}, {Qt::OtherFocusReason, 1}, {Qt::PopupFocusReason, 0},
        {Qt::ActiveWindowFocusReason, 0}, {Qt::MenuBarFocusReason, 0}};
    for (const auto& [reason, expected] : cases) {
        EntryField field(TypingRule::Any);
        field.setText(QStringLiteral("31-12-2025"));
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
    field->setText(QStringLiteral("21-11-2025"));
    ASSERT_TRUE(form.show());
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_EQ(field->selectedText(), field->text());
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
    QTest::mouseClick(field, Qt::LeftButton);
    EXPECT_FALSE(field->hasSelectedText());
}

} // namespace lorvan::test

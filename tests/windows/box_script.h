#pragma once

#include "windows/driver.h"

#include <QMessageBox>
#include <QTimer>

#include <deque>
#include <map>

namespace lorvan::test {

/// A message box that a test waits for, with the answer that it gives.
struct ExpectedBox {
    QMessageBox::Icon icon;
    QString title;
    QString text; ///< The whole text; of a box made by partly(), a part of it.
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    bool isPartOfText = false;
    QString details = {}; ///< A part of the small print, where it matters.
    Qt::Key key = Qt::Key_unknown; ///< Pressed instead of a click on the answer.
};

[[nodiscard]] inline ExpectedBox information(const QString& title, const QString& text)
{
    return {QMessageBox::Information, title, text};
}

[[nodiscard]] inline ExpectedBox warning(const QString& title, const QString& text)
{
    return {QMessageBox::Warning, title, text};
}

[[nodiscard]] inline ExpectedBox stop(const QString& title, const QString& text)
{
    return {QMessageBox::Critical, title, text};
}

[[nodiscard]] inline ExpectedBox okCancel(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer)
{
    return {icon, title, text, QMessageBox::Ok | QMessageBox::Cancel, answer};
}

[[nodiscard]] inline ExpectedBox yesNo(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer)
{
    return {icon, title, text, QMessageBox::Yes | QMessageBox::No, answer};
}

[[nodiscard]] inline ExpectedBox byKey(ExpectedBox box, Qt::Key key)
{
    box.key = key;
    return box;
}

[[nodiscard]] inline ExpectedBox partly(ExpectedBox box)
{
    box.isPartOfText = true;
    return box;
}

[[nodiscard]] inline ExpectedBox warningWith(const QString& part)
{
    return partly(warning("Προσοχή", part));
}

[[nodiscard]] inline ExpectedBox withDetails(ExpectedBox box, const QString& details)
{
    box.details = details;
    return box;
}

/// Answers modal boxes as they come, in the order expected. A box that is not expected, or differs from what is, fails
/// the test and gets its escape button; so does a box whose buttons are not Greek.
class BoxScript : public QObject {
public:
    BoxScript() { qApp->installEventFilter(this); }
    ~BoxScript() override ///< Fails the test when an expected box has not come.
    {
        for (const ExpectedBox& box : m_expected)
            ADD_FAILURE() << "never shown: " << box.title << " / " << box.text;
    }

    void expect(const ExpectedBox& box) { m_expected.push_back(box); }

    /// Runs once when a dialog of this object name is shown.
    void whenShown(const QString& objectName, std::function<void(QWidget&)> action)
    {
        m_actions[objectName] = std::move(action);
    }

    /// True when every expected box has come and been answered.
    [[nodiscard]] bool allSeen() const { return m_expected.empty(); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Show || !watched->isWidgetType())
            return false;
        if (auto* const box = qobject_cast<QMessageBox*>(watched)) {
            QTimer::singleShot(0, box, [this, box] { answer(*box); });
        } else if (const auto action = m_actions.extract(watched->objectName())) {
            auto* const window = static_cast<QWidget*>(watched);
            QTimer::singleShot(0, window, [run = action.mapped(), window] { run(*window); });
        }
        return false;
    }

private:
    void answer(QMessageBox& box)
    {
        waitForActive(box);
        QAbstractButton* button = box.escapeButton();
        if (m_expected.empty()) {
            ADD_FAILURE() << "unexpected box: " << box.windowTitle() << " / " << wholeText(box);
        } else {
            const ExpectedBox expected = m_expected.front();
            m_expected.pop_front();
            compare(box, expected);
            if (expected.key != Qt::Key_unknown)
                return QTest::keyClick(box.windowHandle(), expected.key);
            if (QAbstractButton* const wanted = box.button(expected.answer))
                button = wanted;
        }
        button ? button->click() : box.reject();
    }
    static QString wholeText(const QMessageBox& box) { return box.text() + u'\n' + box.informativeText(); }
    static void compare(const QMessageBox& box, const ExpectedBox& expected)
    {
        static const std::map<QMessageBox::StandardButton, QString> captions{{QMessageBox::Ok, "ΟΚ"},
            {QMessageBox::Cancel, "Άκυρο"}, {QMessageBox::Yes, "Ναι"}, {QMessageBox::No, "Όχι"}};
        EXPECT_EQ(box.windowTitle(), expected.title);
        EXPECT_EQ(box.icon(), expected.icon) << expected.title;
        EXPECT_EQ(box.standardButtons(), expected.buttons) << expected.title;
        EXPECT_TRUE(expected.isPartOfText ? box.text().contains(expected.text) : box.text() == expected.text)
            << wholeText(box) << "\nexpected: " << expected.text;
        EXPECT_TRUE(box.informativeText().contains(expected.details)) << wholeText(box);
        for (QAbstractButton* const button : box.buttons())
            EXPECT_EQ(button->text().remove(u'&'), captions.at(box.standardButton(button)));
    }

    std::deque<ExpectedBox> m_expected;
    std::map<QString, std::function<void(QWidget&)>> m_actions;
};

} // namespace lorvan::test

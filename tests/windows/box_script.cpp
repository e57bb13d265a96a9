#include "windows/box_script.h"

#include "support/printing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const std::map<QMessageBox::StandardButton, QString>& greekCaptions()
{
    static const std::map<QMessageBox::StandardButton, QString> captions{
        {QMessageBox::Ok, QStringLiteral("ΟΚ")},
        {QMessageBox::Cancel, QStringLiteral("Άκυρο")},
        {QMessageBox::Yes, QStringLiteral("Ναι")},
        {QMessageBox::No, QStringLiteral("Όχι")},
    };
    return captions;
}

QString wholeText(const QMessageBox& box)
{
    return box.text() + u'\n' + box.informativeText();
}

void compare(const QMessageBox& box, const ExpectedBox& expected)
{
    EXPECT_EQ(box.windowTitle(), expected.title);
    EXPECT_EQ(box.icon(), expected.icon) << expected.title.toStdString();
    EXPECT_EQ(box.standardButtons(), expected.buttons) << expected.title.toStdString();
    if (expected.partOfText)
        EXPECT_TRUE(box.text().contains(expected.text)) << wholeText(box).toStdString();
    else
        EXPECT_EQ(box.text(), expected.text);
    EXPECT_TRUE(box.informativeText().contains(expected.details)) << wholeText(box).toStdString();
    for (QAbstractButton* const button : box.buttons())
        EXPECT_EQ(button->text().remove(u'&'), greekCaptions().at(box.standardButton(button)));
}

} // namespace

ExpectedBox information(const QString& title, const QString& text)
{
    return {QMessageBox::Information, title, text};
}

ExpectedBox warning(const QString& title, const QString& text)
{
    return {QMessageBox::Warning, title, text};
}

ExpectedBox stop(const QString& title, const QString& text)
{
    return {QMessageBox::Critical, title, text};
}

ExpectedBox okCancel(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer)
{
    return {icon, title, text, QMessageBox::Ok | QMessageBox::Cancel, answer};
}

ExpectedBox yesNo(QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButton answer)
{
    return {icon, title, text, QMessageBox::Yes | QMessageBox::No, answer};
}

ExpectedBox byKey(ExpectedBox box, Qt::Key key)
{
    box.key = key;
    return box;
}

ExpectedBox partly(ExpectedBox box)
{
    box.partOfText = true;
    return box;
}

ExpectedBox withDetails(ExpectedBox box, const QString& details)
{
    box.details = details;
    return box;
}

BoxScript::BoxScript()
{
    qApp->installEventFilter(this);
}

BoxScript::~BoxScript()
{
    for (const ExpectedBox& box : m_expected)
        ADD_FAILURE() << "never shown: " << box.title.toStdString() << " / " << box.text.toStdString();
}

void BoxScript::whenShown(const QString& objectName, std::function<void(QWidget&)> action)
{
    m_actions[objectName] = std::move(action);
}

bool BoxScript::eventFilter(QObject* watched, QEvent* event)
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

void BoxScript::answer(QMessageBox& box)
{
    (void)QTest::qWaitForWindowActive(&box);
    QAbstractButton* button = box.escapeButton();
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected box: " << box.windowTitle().toStdString() << " / " << wholeText(box).toStdString();
    } else {
        const ExpectedBox expected = m_expected.front();
        m_expected.pop_front();
        compare(box, expected);
        if (expected.key != Qt::Key_unknown)
            return QTest::keyClick(box.windowHandle(), expected.key);
        if (QAbstractButton* const wanted = box.button(expected.answer))
            button = wanted;
    }
    if (button)
        button->click();
    else
        box.reject();
}

} // namespace lorvan::test

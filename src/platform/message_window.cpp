#include "platform/message_window.h"

#include "platform/busy_pointer.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

namespace lorvan {
namespace {

QString withLineBreaks(QString text)
{
    return text.replace(u'\r', u'\n');
}

/// A key that was pressed before the box came up, and is still held, answers nothing.
class HeldKeys : public QObject {
public:
    explicit HeldKeys(QMessageBox& box)
    {
        box.installEventFilter(this);
        for (QAbstractButton* const button : box.buttons())
            button->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
            return false;
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (event->type() == QEvent::KeyRelease) {
            m_released = {key.key(), key.timestamp()};
            return false;
        }
        // A busy machine does not always call a repetition one; nobody lets go and presses again within the moment.
        return key.isAutoRepeat()
            || (key.key() == m_released.first && key.timestamp() - m_released.second < leastPause);
    }

private:
    static constexpr quint64 leastPause = 10; // milliseconds

    std::pair<int, quint64> m_released{}; ///< The key let go last, and when.
};

int run(QMessageBox& box)
{
    const HeldKeys heldKeys(box);
    const OrdinaryPointer pointer;
    return box.exec();
}

QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, title, withLineBreaks(text), buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(run(box));
}

} // namespace

void showMessage(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, const QString& details)
{
    QMessageBox box(icon, title, withLineBreaks(text), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(withLineBreaks(details));
    const auto labels = box.findChildren<QLabel*>();
    for (QLabel* const label : labels)
        label->setTextFormat(Qt::PlainText); // the box takes the format for its main text alone
    run(box);
}

bool askOkCancel(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text)
{
    return ask(parent, icon, title, text, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok) == QMessageBox::Ok;
}

bool askYesNo(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, DefaultAnswer defaultAnswer)
{
    const auto defaultButton = defaultAnswer == DefaultAnswer::Yes ? QMessageBox::Yes : QMessageBox::No;
    return ask(parent, icon, title, text, QMessageBox::Yes | QMessageBox::No, defaultButton) == QMessageBox::Yes;
}

} // namespace lorvan

#include "look/message_window.h"

#include "look/busy_pointer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

namespace lorvan {
namespace {

constexpr int roomBesideTitle = 8; // times the height of the type

QString withLineBreaks(QString text)
{
    return text.replace(u'\r', u'\n');
}

/// A key that was pressed before the box appeared, and is still held down, does not answer it.
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
        // A busy machine does not always mark a repeated key as such; nobody releases and presses again within so short
        // a time.
        return key.isAutoRepeat()
            || (key.key() == m_released.first && key.timestamp() - m_released.second < leastPause);
    }

private:
    static constexpr quint64 leastPause = 10; // milliseconds

    std::pair<int, quint64> m_released{}; ///< The key released last, and when.
};

int run(QMessageBox& box)
{
    const HeldKeys heldKeys(box);
    const OrdinaryPointer pointer;
    return box.exec();
}

/// The toolkit leaves too little room for a title bar's bold text, icon and buttons.
void makeRoomForTitle(QMessageBox& box)
{
    QFont bold = QApplication::font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int beside = roomBesideTitle * metrics.height();
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid)
        grid->addItem(new QSpacerItem(metrics.horizontalAdvance(box.windowTitle()) + beside, 0), grid->rowCount(), 0, 1,
            grid->columnCount());
}

/// The box applies the text format only to its main text.
QMessageBox::StandardButton ask(QMessageBox& box, const QString& details, QMessageBox::StandardButton defaultButton)
{
    box.setInformativeText(withLineBreaks(details));
    const auto labels = box.findChildren<QLabel*>();
    for (QLabel* const label : labels)
        label->setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    makeRoomForTitle(box);
    return static_cast<QMessageBox::StandardButton>(run(box));
}

} // namespace

void showMessage(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, const QString& details)
{
    QMessageBox box(icon, title, withLineBreaks(text), QMessageBox::Ok, parent);
    ask(box, details, QMessageBox::Ok);
}

bool askOkCancel(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
    const QString& details, DefaultAnswer defaultAnswer)
{
    QMessageBox box(icon, title, withLineBreaks(text), QMessageBox::Ok | QMessageBox::Cancel, parent);
    const auto defaultButton = defaultAnswer == DefaultAnswer::Yes ? QMessageBox::Ok : QMessageBox::Cancel;
    return ask(box, details, defaultButton) == QMessageBox::Ok;
}

bool askYesNo(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, DefaultAnswer defaultAnswer)
{
    const auto defaultButton = defaultAnswer == DefaultAnswer::Yes ? QMessageBox::Yes : QMessageBox::No;
    QMessageBox box(icon, title, withLineBreaks(text), QMessageBox::Yes | QMessageBox::No, parent);
    return ask(box, {}, defaultButton) == QMessageBox::Yes;
}

} // namespace lorvan

#include "controls/alt_keys.h"

#include "controls/command_button.h"
#include "controls/key_binding.h"
#include "look/focus_rules.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QStackedWidget>

#include <map>
#include <string_view>

namespace lorvan {
namespace {

constexpr std::u16string_view greekLetters = u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ";
constexpr std::u16string_view theirKeys = u"ABGDEZHUIKLMNJOPRSTYFXCV";

constexpr const char* givenProperty = "hasAltKeys";

/// Without its accent, as a capital.
QChar plainLetter(QChar letter)
{
    const QString parts = letter.decomposition();
    return (parts.isEmpty() ? letter : parts.front()).toUpper();
}

/// What the key of a letter types on a Latin layout; null for what is no letter.
QChar keyOf(QChar letter)
{
    if (const std::size_t place = greekLetters.find(letter.unicode()); place != greekLetters.npos)
        return theirKeys[place];
    return letter >= u'A' && letter <= u'Z' ? letter : QChar();
}

void bind(CommandButton* button, QChar letter)
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter.unicode())), button);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, button, [button] {
        const bool takesFocus = button->focusPolicy() != Qt::NoFocus;
        if (takesFocus)
            button->setFocus(Qt::ShortcutFocusReason); // the field that had it is left and checked, as by a click
        if (!takesFocus || button->window()->focusWidget() == button)
            button->click();
    });
}

/// `taken` are the keys that are given already.
void giveKey(CommandButton* button, QString& taken)
{
    const QString caption = button->text();
    for (const QChar each : caption) {
        const QChar letter = plainLetter(each);
        const QChar key = keyOf(letter);
        if (key.isNull() || taken.contains(key))
            continue;
        taken += key;
        bind(button, letter);
        if (key != letter)
            bind(button, key);
        showKeyTextInTip(button, QStringLiteral("Alt+") + letter);
        return;
    }
}

/// The page that shows the button in turn with others; its window if there is none.
QWidget* pageOf(QWidget* button)
{
    QWidget* page = button;
    while (!page->isWindow() && !qobject_cast<QStackedWidget*>(page->parentWidget()))
        page = page->parentWidget();
    return page;
}

void giveKeys(QWidget& window)
{
    std::map<QWidget*, QString> taken;
    for (const bool isOnPage : {false, true}) {
        for (CommandButton* const button : window.findChildren<CommandButton*>()) {
            QWidget* const page = pageOf(button);
            if (button->window() == &window && (page != &window) == isOnPage && button->shortcut().isEmpty())
                giveKey(button, taken.try_emplace(page, taken[&window]).first->second);
        }
    }
    window.setProperty(givenProperty, true);
}

bool takesTyping(const QObject& object)
{
    return qobject_cast<const QLineEdit*>(&object) || qobject_cast<const QPlainTextEdit*>(&object);
}

class AltKeys : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            return takesTyping(*watched) && isAltTyping(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            auto& widget = *static_cast<QWidget*>(watched);
            if (widget.isWindow() && !widget.property(givenProperty).toBool())
                giveKeys(widget);
        }
        return false;
    }
};

} // namespace

void installAltKeys(QApplication& application)
{
    application.installEventFilter(new AltKeys(&application));
}

} // namespace lorvan

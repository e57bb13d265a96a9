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

#include <string_view>

namespace lorvan {
namespace {

constexpr std::u16string_view greekLetters = u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ";
constexpr std::u16string_view theirKeys = u"ABGDEZHUIKLMNJOPRSTYFXCV";

constexpr const char* givenProperty = "hasAltKeys";
constexpr const char* keyProperty = "altKey";

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

/// The page that shows the button in turn with others; its window if there is none.
QWidget* pageOf(QWidget* button)
{
    QWidget* page = button;
    while (!page->isWindow() && !qobject_cast<QStackedWidget*>(page->parentWidget()))
        page = page->parentWidget();
    return page;
}

/// The keys of the buttons that may be seen together with those of that page.
QString keysBeside(const QWidget* page)
{
    const QWidget* const window = page->window();
    QString keys;
    for (CommandButton* const each : window->findChildren<CommandButton*>()) {
        const QWidget* const itsPage = pageOf(each);
        if (page == window || itsPage == window || itsPage == page)
            keys += each->property(keyProperty).toString();
    }
    return keys;
}

void giveKey(CommandButton* button)
{
    if (!button->shortcut().isEmpty() || button->property(keyProperty).isValid())
        return;
    const QString taken = keysBeside(pageOf(button));
    const QString caption = button->text();
    for (const QChar each : caption) {
        const QChar letter = plainLetter(each);
        const QChar key = keyOf(letter);
        if (key.isNull() || taken.contains(key))
            continue;
        button->setProperty(keyProperty, QString(key));
        bind(button, letter);
        if (key != letter)
            bind(button, key);
        showKeyTextInTip(button, QStringLiteral("Alt+") + letter);
        return;
    }
}

/// Those of the window itself come first: they are seen with every page.
void giveKeys(QWidget& window)
{
    for (const bool isOnPage : {false, true}) {
        for (CommandButton* const button : window.findChildren<CommandButton*>()) {
            if (button->window() == &window && (pageOf(button) != &window) == isOnPage)
                giveKey(button);
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
            auto* const button = qobject_cast<CommandButton*>(&widget);
            if (button && button->window()->property(givenProperty).toBool())
                giveKey(button);
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

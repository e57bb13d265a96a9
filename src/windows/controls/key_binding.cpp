#include "controls/key_binding.h"

#include "controls/entry_field.h"
#include "lists/row_delegate.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QShortcut>

namespace lorvan {
namespace {

/// The key of the keypad means the same.
QList<QKeySequence> sequencesOf(KeyUse use)
{
    QList<QKeySequence> all;
    for (const QString& keys : keyEntry(use).keys) {
        all += QKeySequence(keys, QKeySequence::PortableText);
        if (keys.endsWith(QLatin1String("Return")))
            all += QKeySequence(keys.chopped(6) + QStringLiteral("Enter"), QKeySequence::PortableText);
    }
    return all;
}

/// What a widget's tooltip shows besides its own text.
class KeyTip : public QObject {
public:
    static KeyTip& of(QWidget* widget)
    {
        for (QObject* const child : widget->children())
            if (auto* const known = dynamic_cast<KeyTip*>(child))
                return *known;
        return *new KeyTip(widget);
    }

    void addKeys(const QString& keys) { m_keys += keys; }
    void addLine(const QString& line) { m_lines += line; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return false;
        auto* const widget = static_cast<QWidget*>(watched);
        const auto* const field = qobject_cast<EntryField*>(widget);
        if (field && field->hidesText())
            return false;
        showPlainToolTip(
            static_cast<QHelpEvent*>(event)->globalPos(), textWith(widget->toolTip()), widget, widget->rect());
        return true;
    }

private:
    explicit KeyTip(QWidget* widget)
        : QObject(widget)
    {
        widget->installEventFilter(this);
    }

    /// Keys that the tooltip names itself stand at its end, in parentheses.
    [[nodiscard]] QString textWith(const QString& tip) const
    {
        const QString keys = m_keys.join(QStringLiteral(", "));
        QStringList lines = m_lines;
        if (tip.isEmpty() || keys.isEmpty())
            lines.prepend(tip + keys);
        else if (tip.endsWith(u')'))
            lines.prepend(tip.chopped(1) + QStringLiteral(", %1)").arg(keys));
        else
            lines.prepend(tip + QStringLiteral(" (%1)").arg(keys));
        lines.removeAll(QString());
        return lines.join(u'\n');
    }

    QStringList m_keys; ///< For what the tooltip is about.
    QStringList m_lines; ///< For other things, with what they do.
};

} // namespace

void bindKeys(KeyUse use, QWidget* widget, Qt::ShortcutContext context, const std::function<void()>& action)
{
    for (const QKeySequence& keys : sequencesOf(use)) {
        auto* const shortcut = new QShortcut(keys, widget);
        shortcut->setContext(context);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, widget, action);
    }
}

bool asksFor(const QKeyEvent& event, KeyUse use)
{
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event.key()));
    return sequencesOf(use).contains(QKeySequence(pressed));
}

void showKeyInTip(QWidget* widget, KeyUse use)
{
    showKeyTextInTip(widget, keysText(keyEntry(use)));
}

void showKeyTextInTip(QWidget* widget, const QString& keys)
{
    KeyTip::of(widget).addKeys(keys);
}

void showKeysInTip(QWidget* widget, const std::vector<KeyUse>& uses)
{
    for (const KeyUse use : uses)
        KeyTip::of(widget).addLine(keysText(keyEntry(use)) + QStringLiteral(": ") + keyEntry(use).does);
}

} // namespace lorvan

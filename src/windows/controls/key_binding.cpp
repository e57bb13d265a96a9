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

class KeyTip : public QObject {
public:
    KeyTip(QWidget* widget, bool isAboutTheSame, const std::vector<KeyUse>& uses)
        : QObject(widget)
        , m_isAboutTheSame(isAboutTheSame)
    {
        QStringList lines;
        for (const KeyUse use : uses) {
            const KeyEntry& entry = keyEntry(use);
            lines += isAboutTheSame ? keysText(entry) : keysText(entry) + QStringLiteral(": ") + entry.does;
        }
        m_keys = lines.join(u'\n');
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return false;
        auto* const widget = static_cast<QWidget*>(watched);
        const auto* const field = qobject_cast<EntryField*>(widget);
        if (field && field->hidesText())
            return false;
        const QString tip = widget->toolTip();
        const QString text = m_isAboutTheSame ? tip + QStringLiteral(" (%1)").arg(m_keys)
            : tip.isEmpty()                   ? m_keys
                                              : tip + u'\n' + m_keys;
        showPlainToolTip(static_cast<QHelpEvent*>(event)->globalPos(), text, widget, widget->rect());
        return true;
    }

private:
    const bool m_isAboutTheSame;
    QString m_keys;
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
    new KeyTip(widget, true, {use});
}

void showKeysInTip(QWidget* widget, const std::vector<KeyUse>& uses)
{
    new KeyTip(widget, false, uses);
}

} // namespace lorvan

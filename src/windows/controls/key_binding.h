#pragma once

#include "platform/key_table.h"

#include <Qt>

#include <functional>
#include <vector>

class QKeyEvent;
class QWidget;

namespace lorvan {

/// Runs the action when one of the keys of that use is pressed within the context of the widget. A key that is held
/// down counts once.
void bindKeys(KeyUse use, QWidget* widget, Qt::ShortcutContext context, const std::function<void()>& action);

/// Whether the event is one of the keys of that use.
[[nodiscard]] bool asksFor(const QKeyEvent& event, KeyUse use);

/// Adds the keys to what the widget's tooltip shows: in parentheses to a tooltip about the same, otherwise each on a
/// line of its own with what it does. The tooltip's own text stays as it is.
void showKeyInTip(QWidget* widget, KeyUse use);
void showKeyTextInTip(QWidget* widget, const QString& keys);
void showKeysInTip(QWidget* widget, const std::vector<KeyUse>& uses);

} // namespace lorvan

#pragma once

#include <QMessageBox>
#include <QString>

namespace lorvan {

/// The modal message boxes of the program. Texts are plain, never markup; a carriage return in a text is a line break.
/// The parent may be null.

/// A box with an OK button. `details`, if given, appears below the text in small print.
void showMessage(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, const QString& details = {});

enum class DefaultAnswer { Yes, No };

/// Asks with OK and Cancel; true only for OK. `details`, if given, appears below the text in small print.
[[nodiscard]] bool askOkCancel(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
    const QString& details = {}, DefaultAnswer defaultAnswer = DefaultAnswer::Yes);

/// Asks with Yes and No; true only for Yes.
[[nodiscard]] bool askYesNo(
    QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text, DefaultAnswer defaultAnswer);

} // namespace lorvan

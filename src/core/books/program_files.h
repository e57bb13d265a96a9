#pragma once

#include <QString>
#include <QStringList>

namespace lorvan {

/// The two programs with windows, which stand in one folder: the cash book, and the door where a book is chosen.
inline const QString cashBookProgram = QStringLiteral("lorvan");
inline const QString doorProgram = QStringLiteral("lorvan-books");

/// The door's option to show itself in any case.
inline const QString chooseOption = QStringLiteral("--choose");
/// The door's option to open the book in the folder that follows.
inline const QString openOption = QStringLiteral("--open");
/// The door's option to put a backup, the file that follows, in the place of the book that the program opens.
inline const QString restoreOption = QStringLiteral("--restore");

/// The path of the program of that name in the folder of `ownFile`.
[[nodiscard]] QString besideProgram(const QString& ownFile, const QString& name);

/// Whether it is there and can be run.
[[nodiscard]] bool canRun(const QString& programFile);

/// This process becomes the program: everything that the process holds is released in the same moment. Does not return,
/// except by throwing Refused.
[[noreturn]] void becomeProgram(const QString& programFile, const QStringList& options);

} // namespace lorvan

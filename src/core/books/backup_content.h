#pragma once

#include "books/book_from_backup.h"
#include "books/known_books.h"

#include <QStringList>

namespace lorvan {

/// What a backup holds, so that somebody can tell whether it is the one they mean.
struct BackupContent {
    QString path;
    qint64 size = 0; ///< Bytes of the file.
    QDateTime written; ///< When the file was last written.
    std::optional<BookCheck> check; ///< No value if the book in it is of an older schema version.
    QDate lastClosed; ///< The latest closed day; invalid if there is none.
};

/// Unpacks a backup into a hidden folder in the place where its book would go, proves and checks it, and removes it
/// again; nothing else changes there. The path is absolute. A StopCheck may end it. Throws like RestoredBook.
[[nodiscard]] BackupContent lookIntoBackup(const QString& backup, const BookFiles& place, const StepProgress& progress);

/// The content in words, line by line; the findings of the check come last. `heading` is the book's name; empty if it
/// is not known, since a backup does not hold it.
[[nodiscard]] QStringList contentLines(const BackupContent& content, const QString& heading);

/// The name of the known book in whose folder "backup" the file lies; empty if there is none.
[[nodiscard]] QString headingOfBackup(const QString& backup, const std::vector<KnownBook>& books);

} // namespace lorvan

#pragma once

#include <QString>

#include <stdexcept>

namespace lorvan {

class BookFiles;

/// A restore that is decided could not be brought to its end. It will be, by the next attempt. what() says why.
class RestoreUnfinished : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The hidden folder in the data folder from which a book is restored, ".restore".
[[nodiscard]] BookFiles stagedBook(const BookFiles& book);

/// Decides the restore: from here on the book in stagedBook() is the one that holds. What is in the data folder now
/// will be put into its folder `aside`. One file, "restore.pending", appears there, and the disk has confirmed it.
/// Throws std::runtime_error when it cannot be written; nothing is decided then.
void decideRestore(const BookFiles& book, const QString& aside);

/// Carries out a restore that is decided: the old files, with their journals, are put aside, the new ones put in
/// their place and the usage marker made free. Each step may already be done, for whoever did it before may have been
/// killed. Of several programs one does it, and the others wait. To be called before a book's files are looked at;
/// without a decided restore it only looks for one file. Throws RestoreUnfinished.
void finishRestore(const BookFiles& book);

} // namespace lorvan

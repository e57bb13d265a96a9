#pragma once

#include <QString>

#include <stdexcept>

namespace lorvan {

class BookFiles;
class Folder;

/// A restore that was decided on could not be completed. The next attempt will complete it. what() says why.
class RestoreUnfinished : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The prefix of the hidden folders from which a book is restored; see WorkFolder.
[[nodiscard]] QString stagedPrefix();

/// Decides the restore: from now on the book in the folder `staged` of the data folder is the valid one. What is in the
/// data folder now will be moved into its folder `aside`. The decision is a single file, "restore.pending". If the disk
/// did not confirm it, noteUnconfirmed() is called. Throws std::runtime_error if the file cannot be written or if
/// another restore has been decided on; this one is then not decided.
void decideRestore(const Folder& data, const QString& staged, const QString& aside);

/// Carries out a restore that was decided on: the old files, with their journals, are put aside, the new ones take
/// their place and the usage marker is made free. Nothing is moved before the disk has confirmed the decision. Any step
/// may already have been done by an earlier run that was killed. If several programs try, one does it and the others
/// wait. To be called before a book's files are looked at; if no restore was decided on, it only looks for one file.
/// Throws RestoreUnfinished.
void finishRestore(const BookFiles& book);

/// Removes what was left by restores that were killed before they were decided.
void removeUndecidedRestores(const Folder& data) noexcept;

} // namespace lorvan

#pragma once

#include <QString>

#include <stdexcept>

namespace lorvan {

class BookFiles;
class Folder;

/// A restore that is decided could not be brought to its end. It will be, by the next attempt. what() says why.
class RestoreUnfinished : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// How the names of the hidden folders begin from which a book is restored; see WorkFolder.
[[nodiscard]] QString stagedPrefix();

/// Decides the restore: from here on the book in the folder `staged` of the data folder is the one that holds. What is
/// in the data folder now will be put into its folder `aside`. One file, "restore.pending", appears there. That the
/// disk did not confirm it is noted with noteUnconfirmed(). Throws std::runtime_error when it cannot be written, or
/// when another restore is decided; this one is not decided then.
void decideRestore(const Folder& data, const QString& staged, const QString& aside);

/// Carries out a restore that is decided: the old files, with their journals, are put aside, the new ones put in
/// their place and the usage marker made free. Nothing is moved before the disk has confirmed the decision. Each step
/// may already be done, for whoever did it before may have been killed. Of several programs one does it, and the others
/// wait. To be called before a book's files are looked at; without a decided restore it only looks for one file. Throws
/// RestoreUnfinished.
void finishRestore(const BookFiles& book);

/// Removes what killed restores have left that were not decided.
void removeUndecidedRestores(const Folder& data) noexcept;

} // namespace lorvan

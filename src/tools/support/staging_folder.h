#pragma once

#include "book/book_files.h"
#include "book/work_folder.h"

namespace lorvan {

/// The hidden folder inside a data folder in which a new book is made. It carries the computer's name and is locked as
/// long as its process lives, so that one left behind by a killed process is told from one in use.
class StagingFolder {
public:
    /// Throws Refused when it cannot be made.
    explicit StagingFolder(const QString& dataFolder);
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    [[nodiscard]] BookFiles files() const { return BookFiles(folder().path()); }
    [[nodiscard]] const Folder& folder() const { return m_work.folder(); }
    [[nodiscard]] const Folder& dataFolder() const { return m_dataFolder; }

    /// To be called before the first file is moved into the data folder: notes what tells the staged book from others,
    /// so that the move can be taken back when the process is killed in its midst. The disk has then confirmed the
    /// staged files and the note. Throws Refused.
    void noteMove() const;

private:
    Folder m_dataFolder;
    WorkFolder m_work;
};

/// Removes the staging folders that killed processes of this computer left in a data folder, and the files which such a
/// process had moved out already without reaching the main database, the last. What is in use, or not certainly such a
/// remainder, stays. Throws FileError where the data folder cannot be opened.
void removeStagingRemainders(const BookFiles& files);

} // namespace lorvan

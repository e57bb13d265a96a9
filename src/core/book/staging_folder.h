#pragma once

#include "book/book_files.h"
#include "platform/files/work_folder.h"

namespace lorvan {

/// The hidden folder inside a data folder in which a new book is made. Its name contains the computer's, and it is
/// locked while its process is alive, so that a folder left by a killed process can be told from one in use.
class StagingFolder {
public:
    /// Throws Refused if it cannot be made.
    explicit StagingFolder(const QString& dataFolder);
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    [[nodiscard]] BookFiles files() const { return BookFiles(folder().path()); }
    [[nodiscard]] const Folder& folder() const { return m_work.folder(); }
    [[nodiscard]] const Folder& dataFolder() const { return m_dataFolder; }

    /// To be called before the first file is moved into the data folder: writes a note that identifies the staged book,
    /// so that the move can be undone if the process is killed before its end. Returns when the disk has confirmed the
    /// staged files and the note. Throws Refused.
    void noteMove() const;

private:
    Folder m_dataFolder;
    WorkFolder m_work;
};

/// Removes the staging folders that killed processes of this computer have left in a data folder. If such a process had
/// moved some of the files out, but not yet the main database, which is the last, these are removed too. Whatever is in
/// use, or not certainly left by such a process, stays. Throws FileError if the data folder cannot be opened.
void removeStagingRemainders(const BookFiles& files);

} // namespace lorvan

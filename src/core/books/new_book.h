#pragma once

#include "book/book.h"
#include "book/staging_folder.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace lorvan {

/// Throws BookExists if any of a book's three files is there, RestoreUnfinished if there is a restore that cannot be
/// completed. Removes first what a killed process left of a new book.
void refuseExistingBook(const BookFiles& files);

/// Fills a book that is not in its place yet. If the result of a commit is unknown, nothing has been made, so the error
/// is thrown again as a plain SqlError.
void fillHidden(const std::function<void()>& fill);

/// A new book. It is filled in a hidden folder inside its data folder and appears there, complete, with keep(); until
/// then, and if that fails, everything that was made is removed again, including new folders.
class NewBook {
public:
    /// An empty book at the current schema version. Missing folders are made. Throws BookExists if any of its three
    /// files already exists, Refused if the folder cannot be written, SqlError.
    explicit NewBook(const QString& dataFolder);
    ~NewBook();
    NewBook(const NewBook&) = delete;
    NewBook& operator=(const NewBook&) = delete;

    [[nodiscard]] Book& book() { return *m_book; }

    /// Begins the journal if nobody has, closes the book and moves its files into place. Throws like the constructor,
    /// also if another book has appeared in the meantime. If the disk does not confirm the names, noteUnconfirmed() is
    /// called.
    void keep();

private:
    void removeFolders();
    void moveIntoPlace();

    BookFiles m_target;
    QStringList m_madeFolders; // innermost first
    std::optional<StagingFolder> m_staging;
    KeyRing m_keys;
    std::optional<Book> m_book;
    bool m_kept = false;
};

} // namespace lorvan

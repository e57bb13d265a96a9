#pragma once

#include "book/book.h"
#include "support/staging_folder.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace lorvan {

/// Throws BookExists when one of a book's three files is there, RestoreUnfinished when a restore there cannot be
/// brought to its end. What a killed process left there of a book in the making is removed before.
void refuseExistingBook(const BookFiles& files);

/// Fills a book that is not in its place yet. A commit of which nobody can say how it ended has made nothing then: it
/// is thrown on as a plain SqlError.
void fillHidden(const std::function<void()>& fill);

/// A book in the making. It is filled in a hidden folder inside its data folder and appears there, complete, with
/// keep(); until then, and when that fails, everything that was made is removed again, new folders included.
class NewBook {
public:
    /// An empty book at the current schema version. Missing folders are made.
    /// Throws BookExists when one of its three files is there already, Refused when the folder cannot be written,
    /// SqlError.
    explicit NewBook(const QString& dataFolder);
    ~NewBook();
    NewBook(const NewBook&) = delete;
    NewBook& operator=(const NewBook&) = delete;

    [[nodiscard]] Book& book() { return *m_book; }

    /// Closes the book and moves its files into place. Throws like the constructor, also when another book has
    /// appeared in the meantime. Names that the disk does not confirm are noted with noteUnconfirmed().
    void keep();

private:
    void makeFolder();
    void removeFolders();
    void moveIntoPlace();

    BookFiles m_target;
    QStringList m_madeFolders; // innermost first
    std::optional<StagingFolder> m_staging;
    std::optional<Book> m_book;
    bool m_kept = false;
};

} // namespace lorvan

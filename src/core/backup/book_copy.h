#pragma once

#include "backup/book_proof.h"
#include "platform/files/folder.h"

#include <QDateTime>
#include <QString>

namespace lorvan {

class Connection;

/// One file of a copy. It bears a name ending in ".part" until it is complete. Unless it is kept, it goes with the
/// object.
class CopiedFile {
public:
    /// For a copy that will stand beside the original as name-2026-11-23-101530.ending.
    CopiedFile(const Folder& folder, const QString& original, const QDateTime& at);
    ~CopiedFile();
    CopiedFile(const CopiedFile&) = delete;
    CopiedFile& operator=(const CopiedFile&) = delete;

    [[nodiscard]] QString path() const { return m_folder.pathOf(m_name); } ///< Once it is complete.

    /// Writes the file of the database `schema` for those who may read the original, has the disk confirm it, and reads
    /// all of it back.
    void write(Connection& book, const QString& schema, KeyRing& keys);
    void complete();
    void keep() { m_isOurs = false; }

private:
    const Folder& m_folder;
    QString m_original;
    QString m_name;
    QString m_current;
    bool m_isOurs = false; ///< Made by this object, which removes it.
};

/// A copy of both databases beside the originals, named by date and time: lorvan-2026-11-23-101530.mdb and
/// mapcodes-2026-11-23-101530.mdb. Unless it is kept, it goes with the object.
class BookCopy {
public:
    /// Copies the files and proves that the copies can be read. `book` has the main database open and the auxiliary one
    /// attached as `auxiliary`, in a transaction that keeps other writers out and has not written yet. The names are
    /// those of `now`, or of the first second after it for which both are free.
    /// Throws BookCopyFailed when the copy cannot be written, SqlError when an original cannot be read; no part of a
    /// copy stays behind then.
    BookCopy(Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now);

    [[nodiscard]] QString mainDatabase() const { return m_main.path(); }
    [[nodiscard]] QString auxiliaryDatabase() const { return m_auxiliary.path(); }

    void keep();

private:
    BookCopy(Folder folder, const QDateTime& now);

    Folder m_folder;
    QDateTime m_at;
    CopiedFile m_main;
    CopiedFile m_auxiliary;
};

} // namespace lorvan

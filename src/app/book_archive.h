#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace lorvan {

class BookFiles;

/// The file is no backup, or not a whole one. what() names it and says in Greek what is wrong.
class BackupUnusable : public std::runtime_error {
public:
    BackupUnusable(const QString& path, const QString& reason);
};

/// Writes both databases of a copied book into a plain tar file, which is open for writing as `descriptor`. `path`
/// names it in failures. Throws BookCopyFailed; GivenUp when `goesOn` says no.
void packBook(const BookFiles& copy, int descriptor, const QString& path, const std::function<bool()>& goesOn);

/// Unpacks a file made by packBook() into an existing folder without such files, confirmed by the disk. A file with
/// anything else in it is no backup. Nothing is said about the databases. Throws BackupUnusable, BookCopyFailed
/// when the folder cannot be written, GivenUp when `goesOn` says no; what was written stays.
void unpackBook(const QString& path, const BookFiles& copy, const std::function<bool()>& goesOn = {});

} // namespace lorvan

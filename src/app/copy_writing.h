#pragma once

#include <QString>

#include <stdexcept>

class QFile;

namespace lorvan {

/// The copy of a book could not be written or does not open. what() names the file and the reason.
class BookCopyFailed : public std::runtime_error {
public:
    BookCopyFailed(const QString& path, const QString& reason);
};

/// Writes the bytes where the file stands. Throws BookCopyFailed.
void writeAll(QFile& file, const char* bytes, qint64 size);

/// Has the disk confirm the file and closes it. Throws BookCopyFailed.
void closeConfirmed(QFile& file);

} // namespace lorvan

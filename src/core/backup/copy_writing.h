#pragma once

#include "book/failure_text.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"

#include <QString>

#include <optional>
#include <stdexcept>

#include <sys/stat.h>

namespace lorvan {

/// The copy of a book could not be written or does not open. what() names the file and the reason.
class BookCopyFailed : public std::runtime_error, public PlainlyToldFailure {
public:
    BookCopyFailed(const QString& path, const QString& reason);
    explicit BookCopyFailed(const FileError& error);
    [[nodiscard]] QString plainText() const override;
};

/// What `action` returns; a FileError in it becomes BookCopyFailed.
template <typename Action> auto asCopy(const Action& action) -> decltype(action())
{
    try {
        return action();
    } catch (const FileError& error) {
        throw BookCopyFailed(error);
    }
}

/// The status of a plain file; no value for anything else. The file is not opened, because closing a database would
/// drop the locks that this process holds on it.
[[nodiscard]] std::optional<struct stat> statusOf(const Folder& folder, const QString& name);

/// Throws FileError (ENOSPC) if the disk has no room for so many bytes. If the disk does not say, it is assumed to have
/// room.
void refuseWithoutRoom(const Folder& folder, qint64 bytes);

} // namespace lorvan

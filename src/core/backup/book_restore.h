#pragma once

#include "book/failure_text.h"

#include <QString>

#include <memory>
#include <optional>
#include <stdexcept>

namespace lorvan {

class Authority;
class BookFiles;

/// The backup could not be unpacked into the data folder. what() says why.
class RestoreFailed : public std::runtime_error, public PlainlyToldFailure {
public:
    using std::runtime_error::runtime_error;
    [[nodiscard]] QString plainText() const override;
};

/// The book in a backup, unpacked and proven in a hidden folder inside the data folder, and not in its place yet.
/// Without replace() it goes with the object.
class RestoredBook {
public:
    /// Makes the data folder where it is missing, for its owner alone. Throws BackupUnusable when the file is no
    /// backup, or a damaged one, UnknownSchemaVersion, and RestoreFailed when the folder cannot be written. A StopCheck
    /// is asked for every megabyte unpacked and from time to time in the proof; when it says no, GivenUp or SqlError is
    /// thrown.
    RestoredBook(const QString& backup, const BookFiles& book);
    ~RestoredBook();
    RestoredBook(const RestoredBook&) = delete;
    RestoredBook& operator=(const RestoredBook&) = delete;

    /// For those who want to look at it.
    [[nodiscard]] const BookFiles& staged() const;

    /// Adds a row to its journal (see recordRestore()), puts it in its place, and what was there aside. The new files
    /// take the access that the old ones have. The usage marker is free then; whoever calls holds it, if there is one.
    /// Killed on the way, there is either the old book or, from the next start of a program on, the new one. Returns
    /// the folder where the old files are, if there were any. Throws RestoreFailed when nothing is decided yet,
    /// RestoreUnfinished afterwards.
    std::optional<QString> replace(const Authority& authority);

private:
    struct Staging;
    std::unique_ptr<Staging> m_staging;
};

} // namespace lorvan

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

/// The book in a backup, unpacked and proven in a hidden folder inside the data folder. replace() moves it into its
/// place; without that, the destructor removes it.
class RestoredBook {
public:
    /// Makes the data folder if it is missing, for its owner only. Throws BackupUnusable if the file is not a backup or
    /// is damaged, UnknownSchemaVersion, and RestoreFailed if the folder cannot be written. If a StopCheck says no,
    /// which is asked after every megabyte, GivenUp or SqlError is thrown.
    RestoredBook(const QString& backup, const BookFiles& book);
    ~RestoredBook();
    RestoredBook(const RestoredBook&) = delete;
    RestoredBook& operator=(const RestoredBook&) = delete;

    /// The unpacked book, to be read only.
    [[nodiscard]] const BookFiles& staged() const;

    /// Adds a row to the journal (see recordRestore()), puts the old files aside and the new ones in their place, with
    /// the permissions of the old ones. The caller holds the usage marker, if there is one; afterwards it is free. If
    /// the process is killed in between, the book is still the old one, or the next start of a program completes the
    /// new one. Returns the folder with the old files, if there were any. Throws RestoreFailed if the old book stays,
    /// and RestoreUnfinished if the new one has been decided on and could not be completed.
    std::optional<QString> replace(const Authority& authority);

private:
    struct Staging;
    std::unique_ptr<Staging> m_staging;
};

} // namespace lorvan

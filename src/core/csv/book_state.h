#pragma once

#include "book/book_files.h"
#include "platform/engine/connection.h"
#include "platform/work.h"

namespace lorvan {

class KeyRing;

/// Both databases of a book as they are at one moment, copied into a folder of their own, which is removed when the
/// object is destroyed. Writers wait no longer than for a backup.
class BookState {
public:
    /// Makes the folder. `keys` holds the keys of both files and must outlive the object. `progress` must not throw.
    /// Throws Refused if the copy cannot be written, SqlError, and GivenUp if a StopCheck says no.
    BookState(const BookFiles& book, KeyRing& keys, const QString& folder, const StepProgress& progress);
    ~BookState();
    BookState(const BookState&) = delete;
    BookState& operator=(const BookState&) = delete;

    /// Connections that only read. Throw SqlError.
    [[nodiscard]] Connection openMain() const;
    [[nodiscard]] Connection openAuxiliary() const;

private:
    KeyRing& m_keys;
    BookFiles m_files;
};

} // namespace lorvan

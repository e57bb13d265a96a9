#pragma once

#include "backup/copy_writing.h"

#include <QString>

namespace lorvan {

class BookFiles;
class KeyRing;

/// Reads every page of a copied database. Nobody else uses the copy yet. When a StopCheck says no, the reading ends
/// with a failure. Throws BookCopyFailed; SqlError where the disk does not read.
void proveDatabase(const QString& path, KeyRing& keys);

/// The same for both databases of a copied book; their tables and schema version must be those of a book, too, with
/// nothing in them that acts by itself (see schema_guard.h), which is looked at first.
/// Throws the same, and UnknownSchemaVersion.
void proveBook(const BookFiles& copy, KeyRing& keys);

} // namespace lorvan

#pragma once

#include "backup/copy_writing.h"

#include <QString>

namespace lorvan {

class BookFiles;
class KeyRing;

/// Reads every page of a copied database, which nobody else may be using yet. If a StopCheck says no, this fails like
/// any other reading. Throws BookCopyFailed, and SqlError if the disk cannot be read.
void proveDatabase(const QString& path, KeyRing& keys);

/// The same for both databases of a copied book. Before that it checks that they have the tables and the schema version
/// of a book, and nothing that would run by itself (see schema_guard.h). Throws the same, and UnknownSchemaVersion.
void proveBook(const BookFiles& copy, KeyRing& keys);

} // namespace lorvan

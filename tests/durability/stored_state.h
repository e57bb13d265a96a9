#pragma once

#include "book/book.h"

#include <QString>

#include <string>

namespace lorvan::test {

[[nodiscard]] Book openBookToWrite(const QString& folder);

/// All rows of a book's tables and its codes, opened as the program does it after a crash; what a check of it finds, or
/// why it does not open, is a part of it. "no book" where there is none of its files.
[[nodiscard]] std::string storedBook(const QString& folder);

/// Whether what storedBook() says is a book in order, or none at all.
[[nodiscard]] bool isWhole(const std::string& stored);

/// A file's bytes; "none" where there is no such file.
[[nodiscard]] std::string storedFile(const QString& path);

/// What lies below a folder that no one who looks there should find: hidden work folders and parts of files.
[[nodiscard]] std::string remaindersIn(const QString& folder);

/// Makes the target's content, hidden entries included, that of the source.
void copyFolder(const QString& source, const QString& target);

/// A free marker and a book of three days, ten movements, a closed day and a user.
void makeSmallBook(const QString& folder);

} // namespace lorvan::test

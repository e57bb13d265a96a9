#pragma once

#include "books/first_user.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace lorvan {

/// A new book as typed.
struct NewBookDraft {
    QString folder;
    QString heading;
    FirstUser user;
    QString openingDay;
    QString openingAmount; ///< Empty: no opening balance.
    std::optional<std::size_t> readySet = std::nullopt; ///< An index of readySets().
};

enum class NewBookField { Folder, Heading, UserName, Password, Repeated, OpeningDay, OpeningAmount };

/// What is wrong with it, in plain Greek, and in which field.
struct NewBookFault {
    NewBookField field;
    QString text;
};

/// The first thing that is wrong, in the order of the fields. Looks at the folder too, but changes nothing.
[[nodiscard]] std::optional<NewBookFault> faultOf(const NewBookDraft& draft, QDate today);

/// Why a book cannot get its place in that folder, in plain Greek; empty if it can: the folder is missing or empty, and
/// the path file can hold it. An existing folder, or the one in which it is to be made, must be writable.
[[nodiscard]] QString faultOfFolder(const QString& folder);

/// Why a book cannot have that heading; empty if it can.
[[nodiscard]] QString faultOfHeading(const QString& heading);

/// The folder as absolute path; "~" at its beginning is the user's home. Blanks around it are removed.
[[nodiscard]] QString folderFromTyped(const QString& typed);

/// Makes the book: at the current version, with its first user, the codes and groups of the set, and the opening
/// balance as the difference of its day. It appears in its folder whole, or, if anything fails, not at all. The draft
/// has no faults. A StopCheck may end it before it appears. Throws Refused, BookExists, GivenUp, SqlError.
void makeBook(const NewBookDraft& draft, const Clock& clock);

/// Makes the book of the sample shop, whole or not at all: its last movements are on the last working day before
/// `today`. Throws like makeBook().
void makeSampleBook(const QString& folder, QDate today, std::uint64_t seed);

/// A folder of that name in the user's documents which a new book can have: with a number behind it if necessary.
/// Removes what a killed process has left of a book there.
[[nodiscard]] QString freeFolder(const QString& name);

} // namespace lorvan

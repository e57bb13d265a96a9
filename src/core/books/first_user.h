#pragma once

#include "platform/authority.h"

#include <QString>

#include <optional>

namespace lorvan {

class BookFiles;

/// A book's first user as typed.
struct FirstUser {
    QString name;
    QString password;
    QString repeated; ///< The password once more.
    Rights rights{true, true, true};
};

enum class FirstUserField { Name, Password, Repeated };

/// What is wrong with it, in plain Greek, and in which field.
struct FirstUserFault {
    FirstUserField field;
    QString text;
};
[[nodiscard]] std::optional<FirstUserFault> faultOf(const FirstUser& user);

/// Adds the first user to a book that has none, in one transaction, recorded in the journal in the administrator's
/// name. The user is complete. Throws Refused if the book has users by now or is not in order for it, MarkerError,
/// LocksUntrusted, SqlError.
void addFirstUser(const BookFiles& files, const FirstUser& user, const Clock& clock);

} // namespace lorvan

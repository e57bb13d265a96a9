#include "books/first_user.h"

#include "book/lock_trust.h"
#include "book/opened_book.h"
#include "platform/work.h"
#include "users/sign_in.h"
#include "users/user_accounts.h"

namespace lorvan {
namespace {

constexpr qsizetype longestName = 100;

} // namespace

std::optional<FirstUserFault> faultOf(const FirstUser& user)
{
    if (user.name.trimmed().isEmpty())
        return FirstUserFault{FirstUserField::Name, QStringLiteral("Δώστε το όνομα του πρώτου χρήστη.")};
    if (user.name.trimmed().size() > longestName)
        return FirstUserFault{FirstUserField::Name,
            QStringLiteral("Το όνομα του χρήστη έχει %1 χαρακτήρες· χωρούν ως %2.")
                .arg(user.name.trimmed().size())
                .arg(longestName)};
    if (user.password.trimmed().isEmpty())
        return FirstUserFault{FirstUserField::Password, QStringLiteral("Δώστε τον κωδικό του πρώτου χρήστη.")};
    if (user.password != user.password.trimmed()) // it is stored without them, but compared as typed
        return FirstUserFault{
            FirstUserField::Password, QStringLiteral("Ο κωδικός δεν αρχίζει ούτε τελειώνει με κενό.")};
    if (user.password != user.repeated)
        return FirstUserFault{
            FirstUserField::Repeated, QStringLiteral("Οι δύο κωδικοί διαφέρουν. Δώστε τον ίδιο και τις δύο φορές.")};
    if (isBuiltInAdministrator(user.name.trimmed(), user.password))
        return FirstUserFault{
            FirstUserField::Name, QStringLiteral("Με αυτό το όνομα και αυτόν τον κωδικό μπαίνει ο διαχειριστής.")};
    return std::nullopt;
}

void addFirstUser(const BookFiles& files, const FirstUser& user, const Clock& clock)
{
    readyBook(files);
    KeyRing keys(bookPassword());
    Connection book = openUnguarded(files, keys);
    if (!listUsers(book).empty())
        throw Refused(QStringLiteral("Το βιβλίο έχει ήδη χρήστες. Τους αλλάζει ο διαχειριστής από την είσοδο."));
    addUser(book, Authority::administrator(clock), user.name, user.password, user.rights);
}

} // namespace lorvan

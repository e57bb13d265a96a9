#include "support/command.h"

#include "books/new_book.h"
#include "platform/stop_check.h"
#include "platform/work.h"
#include "users/user_accounts.h"

#include <optional>

namespace lorvan {
namespace {

struct FirstUser {
    QString name;
    QString password;
};

constexpr Rights allRights{true, true, true};

/// Asks for the password of the first user, if one is wanted. Throws Refused for an empty name or password.
std::optional<FirstUser> askFirstUser(const std::optional<QString>& name, const ToolContext& context)
{
    if (!name)
        return std::nullopt;
    if (name->trimmed().isEmpty())
        throw Refused(QStringLiteral("Το όνομα του χρήστη είναι κενό. Δεν έγινε τίποτα."));
    const QString password = context.askPassword(name->trimmed());
    if (password.trimmed().isEmpty())
        throw Refused(QStringLiteral("Ο κωδικός του χρήστη είναι κενός. Δεν έγινε τίποτα."));
    return FirstUser{*name, password};
}

ExitStatus create(Arguments& arguments, const ToolContext& context)
{
    const auto userName = arguments.takeOption(QStringLiteral("--user"));
    const QString folder = arguments.takeBookFolder();
    arguments.finish();

    refuseExistingBook(BookFiles(folder)); // before anything is asked
    const auto user = askFirstUser(userName, context);
    NewBook made(folder);
    if (user)
        fillHidden([&] {
            Connection both = made.book().openBoth();
            addUser(both, Authority::companion(context.clock), user->name, user->password, allRights);
        });
    continueOrGiveUp();
    made.keep();

    context.out << "Το νέο βιβλίο είναι έτοιμο στον φάκελο " << folder.toStdString() << '\n';
    if (user)
        context.out << "Πρώτος χρήστης, με όλα τα δικαιώματα: " << user->name.trimmed().toStdString() << '\n';
    else
        context.out << "Δεν έχει ακόμη χρήστες.\n";
    return ExitStatus::Done;
}

} // namespace

Command createCommand()
{
    return {QStringLiteral("create"), QStringLiteral("ΦΑΚΕΛΟΣ [--user ΟΝΟΜΑ]"),
        QStringLiteral("Φτιάχνει ένα κενό βιβλίο."),
        QStringLiteral("\n  --user ΟΝΟΜΑ   προσθέτει πρώτο χρήστη με όλα τα δικαιώματα. Ο κωδικός του ζητείται στο\n"
                       "                 τερματικό ή, χωρίς τερματικό, διαβάζεται από μια γραμμή της εισόδου.\n\n"
                       "Ο φάκελος φτιάχνεται αν λείπει. Ένα βιβλίο που υπάρχει δεν αγγίζεται.\n"),
        create};
}

} // namespace lorvan

#include "support/command.h"

#include "books/book_making.h"
#include "demo/demo_shop.h"

namespace lorvan {
namespace {

constexpr std::uint64_t usualSeed = 1;

std::uint64_t seedIn(const std::optional<QString>& text)
{
    if (!text)
        return usualSeed;
    bool isNumber = false;
    const std::uint64_t seed = text->toULongLong(&isNumber);
    if (!isNumber)
        throw UsageError(QStringLiteral("Το %1 δεν είναι αριθμός από 0 και πάνω.").arg(*text));
    return seed;
}

QString rightsText(const Rights& rights)
{
    return rights.modifyCash ? QStringLiteral("όλα τα δικαιώματα") : QStringLiteral("κανένα ιδιαίτερο δικαίωμα");
}

void printUsers(std::ostream& out)
{
    for (const DemoUser& user : demoUsers())
        out << "  χρήστης " << user.name.toStdString() << ", κωδικός " << user.password.toStdString() << " ("
            << rightsText(user.rights).toStdString() << ")\n";
}

ExitStatus demo(Arguments& arguments, const ToolContext& context)
{
    const bool onlyUsers = arguments.takeFlag(QStringLiteral("--users"));
    if (!onlyUsers) {
        const std::uint64_t seed = seedIn(arguments.takeOption(QStringLiteral("--seed")));
        const QString folder = arguments.takeBookFolder();
        arguments.finish();
        makeSampleBook(folder, context.clock.today(), seed);
        context.out << "Το δοκιμαστικό βιβλίο είναι έτοιμο στον φάκελο " << folder.toStdString() << '\n';
    }
    arguments.finish();
    printUsers(context.out);
    return ExitStatus::Done;
}

} // namespace

Command demoCommand()
{
    return {QStringLiteral("demo"), QStringLiteral("ΦΑΚΕΛΟΣ [--seed ΑΡΙΘΜΟΣ] | --users"),
        QStringLiteral("Φτιάχνει ένα βιβλίο με δύο χρόνια κινήσεων ενός μικρού καταστήματος."),
        QStringLiteral("\n  --seed ΑΡΙΘΜΟΣ   άλλος αριθμός, άλλες κινήσεις· ο ίδιος δίνει πάντα τις ίδιες, με άλλες\n"
                       "                   ημερομηνίες\n"
                       "  --users          δείχνει μόνο τους χρήστες των δοκιμαστικών βιβλίων\n\n"
                       "Οι κινήσεις φτάνουν ως χθες· οι παλιότερες από μια εβδομάδα ημέρες είναι κλεισμένες.\n"),
        demo};
}

} // namespace lorvan

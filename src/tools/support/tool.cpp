#include "support/tool.h"

#include "book/claimed_marker.h"
#include "book/failure_text.h"
#include "platform/confirmation.h"
#include "platform/engine/sql_error.h"
#include "platform/stop_check.h"
#include "support/interruption.h"
#include "support/screen_filter.h"

#include <algorithm>
#include <vector>

namespace lorvan {
namespace {

const std::vector<Command>& commands()
{
    static const std::vector<Command> table{checkCommand(), createCommand(), demoCommand(), exportCommand(),
        importCommand(), importCsvCommand(), backupCommand(), restoreCommand(), pathCommand()};
    return table;
}

QString usageLine(const Command& command)
{
    return QStringLiteral("lorvan-data %1 %2").arg(command.name, command.arguments);
}

void printOverview(std::ostream& out)
{
    out << "lorvan-data: εργαλεία για τα βιβλία ταμείου του Lorvan\n\n";
    for (const Command& command : commands())
        out << "  " << usageLine(command).toStdString() << "\n      " << command.summary.toStdString() << '\n';
    out << "\nlorvan-data ΕΝΤΟΛΗ --help: περισσότερα για μια εντολή.\n"
           "Κωδικός εξόδου: 0 έγινε, 1 έγινε και βρέθηκαν λάθη, ή ο δίσκος δεν\n"
           "το επιβεβαίωσε, 2 δεν έγινε και δεν άλλαξε τίποτα.\n";
}

void printHelp(const Command& command, std::ostream& out)
{
    out << usageLine(command).toStdString() << "\n\n"
        << command.summary.toStdString() << '\n'
        << command.help.toStdString();
}

bool asksForHelp(const QStringList& words)
{
    return words.contains(QStringLiteral("--help")) || words.contains(QStringLiteral("-h"));
}

void complain(const ToolContext& context, const QString& message)
{
    context.errors << "lorvan-data: " << message.toStdString() << '\n';
}

/// A failure after a signal has arrived was caused by the signal.
QString messageFor(const std::exception& failure)
{
    if (Interruption::hasCome())
        return Interruption::message();
    return failureText(failure);
}

ExitStatus runCommand(const Command& command, const QStringList& words, const ToolContext& context)
{
    const Interruption interruption;
    const StopCheck stop([] { return !Interruption::hasCome(); });
    try {
        Arguments arguments(words);
        const ExitStatus status = command.run(arguments, context);
        if (Interruption::hasCome())
            context.errors << "lorvan-data: Η διακοπή ήρθε αργά: η εντολή είχε ήδη γίνει.\n";
        return status;
    } catch (const UsageError& error) {
        complain(context, QString::fromUtf8(error.what()));
        context.errors << "Χρήση: " << usageLine(command).toStdString() << '\n';
    } catch (const CommitUnknown& failure) {
        complain(context, failureText(failure));
        return ExitStatus::Found; // it may have been done
    } catch (const std::exception& failure) {
        complain(context, messageFor(failure));
    }
    return ExitStatus::Failed;
}

/// Reports a marker that stayed in use. If the disk did not confirm a change, it may still lose it: this is reported
/// too, and the status is not 0.
ExitStatus endingOf(ExitStatus status, const ToolContext& context)
{
    if (takeMarkerLeftInUse())
        complain(context,
            QStringLiteral("Το αρχείο χρήσης lorvan.dat δεν γράφτηκε και το βιβλίο έμεινε κλειδωμένο. Το ξεκλειδώνει ο"
                           " διαχειριστής από το πρόγραμμα."));
    if (!takeUnconfirmed() || status == ExitStatus::Failed)
        return status;
    complain(context,
        QStringLiteral("Έγινε, αλλά ο δίσκος δεν επιβεβαίωσε ότι το έγραψε. Μια διακοπή ρεύματος μπορεί να το"
                       " αναιρέσει: ελέγξτε τον δίσκο και το αποτέλεσμα."));
    return ExitStatus::Found;
}

} // namespace

ExitStatus runTool(const QStringList& commandLine, const ToolContext& context)
{
    const ScreenFilter out(context.out);
    const ScreenFilter errors(context.errors);
    const QString name = commandLine.value(0);
    const auto found =
        std::find_if(commands().begin(), commands().end(), [&](const Command& each) { return each.name == name; });
    if (found != commands().end() && !asksForHelp(commandLine))
        return endingOf(runCommand(*found, commandLine.mid(1), context), context);
    if (found != commands().end()) {
        printHelp(*found, context.out);
        return ExitStatus::Done;
    }
    if (asksForHelp(commandLine)) {
        printOverview(context.out);
        return ExitStatus::Done;
    }
    if (!name.isEmpty())
        complain(context, QStringLiteral("Άγνωστη εντολή: %1.").arg(name));
    printOverview(context.errors);
    return ExitStatus::Failed;
}

} // namespace lorvan

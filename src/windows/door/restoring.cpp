#include "door/restoring.h"

#include "book/book_files.h"
#include "books/book_from_backup.h"
#include "platform/authority.h"
#include "proof/findings_text.h"

namespace lorvan {
namespace {

const FindingsForm form{QStringLiteral("η «Διόρθωση»")};

QString reportOf(const BookFromBackup& made, const QString& folder)
{
    QStringList lines{QStringLiteral("Το βιβλίο επανήλθε στον φάκελο %1").arg(folder)};
    if (made.aside)
        lines += QStringLiteral("Τα αρχεία που ήταν εκεί φυλάσσονται στον φάκελο %1").arg(*made.aside);
    if (!made.check)
        return lines.join(u'\n');
    lines += QString();
    for (const CheckLine& line : totalLines(*made.check))
        lines += line.text;
    if (!made.check->findings.isInOrder()) {
        lines += QStringLiteral("\nΣτο αντίγραφο υπήρχαν λάθη, και υπάρχουν τώρα και στο βιβλίο:\n");
        for (const CheckLine& line : findingLines(made.check->findings, form))
            lines += line.text;
    }
    return lines.join(u'\n');
}

} // namespace

std::optional<QString> restoreWithProgress(
    QWidget* parent, BackgroundRun& run, const QString& backup, const BookFiles& book, const Clock& clock)
{
    BookFromBackup made;
    const bool isDone = runStoppable(run, parent,
        {QStringLiteral("Από αντίγραφο"), QStringLiteral("Ελέγχεται και επανέρχεται το βιβλίο…"), {}},
        [&](const StepProgress& progress) {
            made = restoreBook(backup, book, Authority::administrator(clock), progress);
        });
    return isDone ? std::optional(reportOf(made, book.dataFolder())) : std::nullopt;
}

} // namespace lorvan

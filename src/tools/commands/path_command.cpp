#include "support/command.h"

#include "book/path_file.h"
#include "books/book_choice.h"
#include "platform/work.h"

#include <QFileInfo>

namespace lorvan {
namespace {

/// The folder if the path file can hold it; otherwise throws Refused.
QString recordable(const QString& given)
{
    const QFileInfo info(given);
    if (!info.isDir())
        throw Refused(QStringLiteral("Δεν υπάρχει φάκελος %1.").arg(info.absoluteFilePath()));
    const QString folder = info.canonicalFilePath();
    refuseUnrecordable(folder);
    return folder;
}

ExitStatus notePath(Arguments& arguments, const ToolContext& context)
{
    const QString folder = recordable(arguments.takeWord(QStringLiteral("ο φάκελος των δεδομένων")));
    arguments.finish();
    const PathFile file(context.programFolder);
    if (!file.replaceFolder(folder))
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται.").arg(file.path()));
    context.out << file.path().toStdString() << ": " << folder.toStdString() << '\n';
    return ExitStatus::Done;
}

} // namespace

Command pathCommand()
{
    return {QStringLiteral("path"), QStringLiteral("ΦΑΚΕΛΟΣ"),
        QStringLiteral("Σημειώνει τον φάκελο δεδομένων που ανοίγει το πρόγραμμα."),
        QStringLiteral(
            "\nΓράφεται στο DIADROMH.DAT, δίπλα στο πρόγραμμα· του εγκατεστημένου, στις ρυθμίσεις του χρήστη.\n"
            "Το χρώμα και ο τίτλος που υπάρχουν εκεί μένουν όπως είναι.\n"),
        notePath};
}

} // namespace lorvan

#include "door/backup_window.h"

#include "book/book_files.h"
#include "books/book_choice.h"
#include "books/book_from_backup.h"
#include "look/message_window.h"
#include "platform/authority.h"
#include "preview/background_run.h"
#include "preview/folder_dialog.h"
#include "proof/findings_text.h"

#include <QFileInfo>

#include <utility>

namespace lorvan {
namespace {

const FindingsForm form{QStringLiteral("η «Διόρθωση»")};

TransferTexts texts()
{
    return {QStringLiteral("fromBackup"), QStringLiteral("Από αντίγραφο"), QStringLiteral("Επαναφορά"),
        QStringLiteral("Αρχείο αντιγράφου"), QStringLiteral("Βιβλίο από αντίγραφο")};
}

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

BackupWindow::BackupWindow(Clock clock, QWidget* parent)
    : TransferWindow(texts(), parent)
    , m_clock(std::move(clock))
{
}

QString BackupWindow::browse()
{
    return askFile(this, windowTitle(), QStringLiteral("Αντίγραφα ασφαλείας (*.tar)"), QStringLiteral("tar"));
}

QString BackupWindow::faultOfTarget(const QString& folder) const
{
    try {
        if (folder.isEmpty())
            return QStringLiteral("Δώστε τον φάκελο του βιβλίου.");
        refuseUnrecordable(folder);
    } catch (const Refused& refusal) {
        return QString::fromUtf8(refusal.what());
    }
    return QFileInfo::exists(folder) && !QFileInfo(folder).isDir()
        ? QStringLiteral("Το %1 είναι αρχείο, όχι φάκελος.").arg(folder)
        : QString();
}

/// Once the restore is decided, it is completed, even if the user has cancelled too late.
std::optional<QString> BackupWindow::transfer(const QString& source, const QString& folder)
{
    const BookFiles files(folder);
    if (holdsBook(files)
        && !askYesNo(this, QMessageBox::Warning, windowTitle(),
            QStringLiteral("Στον φάκελο %1 υπάρχει ήδη βιβλίο. Να μπει στη θέση του το αντίγραφο;\r\rΤο σημερινό δεν"
                           " χάνεται: φυλάσσεται σε υποφάκελο.")
                .arg(folder),
            DefaultAnswer::No))
        return std::nullopt;
    BookFromBackup made;
    const bool isDone = runStoppable(backgroundRun(), this,
        {windowTitle(), QStringLiteral("Ελέγχεται και επανέρχεται το βιβλίο…"), {}}, [&](const StepProgress& progress) {
            made = restoreBook(source, files, Authority::administrator(m_clock),
                [&](RestoreStep, qint64 done, qint64 whole) { progress(done, whole); });
        });
    return isDone ? std::optional(reportOf(made, files.dataFolder())) : std::nullopt;
}

} // namespace lorvan

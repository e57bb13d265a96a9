#include "door/backup_window.h"

#include "book/book_files.h"
#include "books/backup_content.h"
#include "books/book_choice.h"
#include "door/restoring.h"
#include "exchange/backup_choice.h"
#include "look/message_window.h"

#include <QFileInfo>

#include <utility>

namespace lorvan {
namespace {

TransferTexts texts()
{
    return {QStringLiteral("fromBackup"), QStringLiteral("Από αντίγραφο"), QStringLiteral("Επαναφορά"),
        QStringLiteral("Αρχείο αντιγράφου"), QStringLiteral("Βιβλίο από αντίγραφο")};
}

} // namespace

BackupWindow::BackupWindow(Clock clock, std::vector<KnownBook> books, QWidget* parent)
    : TransferWindow(texts(), parent)
    , m_clock(std::move(clock))
    , m_books(std::move(books))
{
}

QString BackupWindow::browse()
{
    return askBackup(this, windowTitle());
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

std::optional<QString> BackupWindow::transfer(const QString& source, const QString& folder)
{
    const BookFiles files(folder);
    const BackupQuestion question{windowTitle(), QStringLiteral("Να γίνει η επαναφορά από αυτό το αντίγραφο;"), source,
        headingOfBackup(source, m_books)};
    if (!showBackupAndAsk(this, backgroundRun(), question, files))
        return std::nullopt;
    if (holdsBook(files)
        && !askYesNo(this, QMessageBox::Warning, windowTitle(),
            QStringLiteral("Στον φάκελο %1 υπάρχει ήδη βιβλίο. Να μπει στη θέση του το αντίγραφο;\r\rΤο σημερινό δεν"
                           " χάνεται: φυλάσσεται σε υποφάκελο.")
                .arg(folder),
            DefaultAnswer::No))
        return std::nullopt;
    return restoreWithProgress(this, backgroundRun(), source, files, m_clock);
}

} // namespace lorvan

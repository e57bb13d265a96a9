#include "door/older_book_window.h"

#include "books/book_making.h"
#include "books/older_book.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_book.h"
#include "look/message_window.h"
#include "preview/background_run.h"
#include "preview/folder_dialog.h"

#include <QFileInfo>

namespace lorvan {
namespace {

TransferTexts texts()
{
    return {QStringLiteral("fromOlder"), QStringLiteral("Από παλαιότερο πρόγραμμα"), QStringLiteral("Μεταφορά"),
        QStringLiteral("Φάκελος του παλιού βιβλίου"), QStringLiteral("Ταμείο")};
}

} // namespace

OlderBookWindow::OlderBookWindow(QWidget* parent)
    : TransferWindow(texts(), parent)
{
}

QString OlderBookWindow::browse()
{
    return askFolder(this, QStringLiteral("Φάκελος του παλιού βιβλίου"));
}

QString OlderBookWindow::faultOfTarget(const QString& folder) const
{
    return faultOfFolder(folder);
}

std::optional<QString> OlderBookWindow::transfer(const QString& source, const QString& folder)
{
    const LegacyFiles files(QFileInfo(source).isDir() ? source : QFileInfo(source).path());
    if (!files.lockFiles().isEmpty()
        && !askYesNo(this, QMessageBox::Warning, windowTitle(),
            QStringLiteral("Ίσως το παλιό βιβλίο είναι ανοιχτό σε άλλο πρόγραμμα. Να συνεχίσω;"), DefaultAnswer::No))
        return std::nullopt;
    const auto take = [&](JetDamage::Answer answer) -> std::optional<QString> {
        JetDamage damage(answer);
        QString report;
        const bool isDone = runStoppable(backgroundRun(), this,
            {windowTitle(), QStringLiteral("Μεταφέρεται το βιβλίο…"), QStringLiteral("Γραμμές")},
            [&](const StepProgress& progress) {
                report = importReport(importOlderBook(files, folder, damage, progress), damage);
            });
        return isDone ? std::optional(QStringLiteral("Το βιβλίο μεταφέρθηκε στον φάκελο %1\n\n").arg(folder) + report)
                      : std::nullopt;
    };
    try {
        return take(JetDamage::Answer::Refuse);
    } catch (const OlderBookDamaged& damaged) {
        if (askYesNo(this, QMessageBox::Warning, windowTitle(),
                QStringLiteral("Το παλιό βιβλίο έχει βλάβες. Να μεταφερθεί ό,τι διαβάζεται;\r\r%1.\r%2")
                    .arg(damaged.damage(), damaged.readableRows()),
                DefaultAnswer::No))
            return take(JetDamage::Answer::Collect);
        return std::nullopt;
    }
}

} // namespace lorvan

#include "backup/book_backup.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"

#include <QAction>

namespace lorvan {
namespace {

const QString title = QStringLiteral("Αντίγραφο ασφαλείας");

} // namespace

void Kentrikh::connectBackup()
{
    const QAction* const now = m_band->tools()->add(QStringLiteral("backUp"), QStringLiteral("Αντίγραφο τώρα"));
    connect(now, &QAction::triggered, this, [this] { openTool([this] { backUpNow(); }); });
}

/// As the companion makes it: one file of both databases, opened again and proved; the user may go on no further
/// meanwhile, but cancel.
void Kentrikh::backUpNow()
{
    QString path;
    const auto work = [this, &path](const StepProgress& progress) {
        path = makeBackupByHand(
            BookFiles(m_settings.dataFolder), m_keys, m_clock.now(), [&progress](qint64 done, qint64 all) {
                progress(done, all);
                return true; // stoppable work is asked itself
            });
    };
    const ProgressTexts texts{
        title, QStringLiteral("Γράφεται και ελέγχεται το αντίγραφο…"), QStringLiteral("Μεγαμπάιτ")};
    if (m_toolRun.run(this, texts, stoppable(work)) && !m_closed)
        showMessage(this, QMessageBox::Information, title,
            QStringLiteral("Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε."), path);
}

} // namespace lorvan

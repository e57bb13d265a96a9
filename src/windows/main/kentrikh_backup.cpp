#include "backup/book_backup.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "platform/stop_check.h"

#include <QAction>

#include <algorithm>
#include <limits>

namespace lorvan {
namespace {

const QString title = QStringLiteral("Αντίγραφο ασφαλείας");

int asCount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

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
    const auto work = [this, &path](const BackgroundRun::Progress& progress) {
        const auto tell = [&progress](qint64 done, qint64 all) { return progress(asCount(done), asCount(all)); };
        try {
            path = makeBackupByHand(BookFiles(m_settings.dataFolder), m_keys, m_clock.now(), tell);
            return true;
        } catch (const GivenUp&) {
            return false;
        }
    };
    const ProgressTexts texts{
        title, QStringLiteral("Γράφεται και ελέγχεται το αντίγραφο…"), QStringLiteral("Μεγαμπάιτ")};
    if (m_backupRun.run(this, texts, work) && !m_closed)
        showMessage(this, QMessageBox::Information, title,
            QStringLiteral("Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε."), path);
}

} // namespace lorvan

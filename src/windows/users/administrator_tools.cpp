#include "users/administrator_tools.h"

#include "backup/book_backup.h"
#include "controls/action_gate.h"
#include "controls/guarded_window.h"
#include "csv/open_book_exchange.h"
#include "exchange/backup_choice.h"
#include "exchange/csv_taking.h"
#include "platform/authority.h"
#include "users/seal_entries.h"

#include <QMenu>
#include <QPointer>

namespace lorvan {
namespace {

const QString restoreTitle = QStringLiteral("Επαναφορά");

} // namespace

AdministratorTools::AdministratorTools(
    BookFiles files, KeyRing& keys, Clock clock, const ActionGate& gate, QWidget* parent)
    : CommandButton(QStringLiteral("tools"), QStringLiteral("Εργαλεία"), parent)
    , m_files(std::move(files))
    , m_clock(std::move(clock))
    , m_gate(gate)
    , m_menu(new QMenu(this))
    , m_restore(addEntry(QStringLiteral("restore"), QStringLiteral("Επαναφορά…"), [this] { chooseBackup(); }))
{
    setObjectName(QStringLiteral("administratorTools"));
    setToolTip(QStringLiteral("Επαναφορά, εισαγωγή CSV και σε κλειστές ημέρες, αποδοχή ευρημάτων, σφράγιση"));
    m_restore->setVisible(false);
    addEntry(QStringLiteral("importCsv"), QStringLiteral("Εισαγωγή CSV…"), [this] { importTables(CsvPlace::Folder); });
    addEntry(QStringLiteral("importZip"), QStringLiteral("Εισαγωγή ZIP…"), [this] { importTables(CsvPlace::Zip); });
    m_menu->addSeparator();
    new SealEntries(m_files, keys, m_clock, m_gate, m_menu, this);
    connect(this, &CommandButton::clicked, this, [this] {
        m_menu->setActiveAction(m_restore->isVisible() ? m_restore : m_menu->actions().at(1));
        m_menu->popup(mapToGlobal(QPoint(0, height())));
    });
}

void AdministratorTools::offerRestore(const QString& heading)
{
    m_heading = heading;
    m_restore->setVisible(true);
}

QAction* AdministratorTools::addEntry(const QString& objectName, const QString& text, const std::function<void()>& step)
{
    QAction* const entry = m_menu->addAction(text);
    entry->setObjectName(objectName);
    connect(entry, &QAction::triggered, this, [this, step] { m_gate.runWindow([] { return true; }, step); });
    return entry;
}

void AdministratorTools::chooseBackup()
{
    const QString backup = askBackup(window(), restoreTitle, backupFolder(m_files));
    if (backup.isEmpty())
        return;
    const BackupQuestion question{restoreTitle,
        QStringLiteral("Να πάρει αυτό το αντίγραφο τη θέση του βιβλίου «%1»;\r\rΤο σημερινό δεν χάνεται: φυλάσσεται σε"
                       " υποφάκελο. Το πρόγραμμα κλείνει και ξεκινά ξανά.")
            .arg(m_heading.simplified()),
        backup, {}};
    if (showBackupAndAsk(window(), m_run, question, m_files) && window()->isVisible())
        Q_EMIT restoreAsked(backup);
}

void AdministratorTools::importTables(CsvPlace place)
{
    const QString files = askCsvFiles(window(), place);
    if (files.isEmpty())
        return;
    const QPointer<QWidget> shown = window();
    const auto take = [&](TakenBefore takenBefore, const StepProgress& progress) {
        return importAsAdministrator(m_files, m_clock, files, takenBefore, progress);
    };
    takeCsvFiles(window(), m_run, {take, [shown] { return shown && shown->isVisible(); }, [] {}});
    tellUnconfirmed(window());
}

} // namespace lorvan

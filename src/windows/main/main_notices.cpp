#include "main/main_notices.h"

#include "backup/daily_backup.h"
#include "book/book_files.h"
#include "controls/command_button.h"
#include "controls/key_binding.h"
#include "controls/notice_line.h"
#include "look/message_window.h"
#include "platform/files/folder.h"
#include "proof/proof_texts.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>

#include <chrono>

namespace lorvan {
namespace {

constexpr std::chrono::seconds closedStandsFor{10};
constexpr std::chrono::seconds undoStandsFor{20};
constexpr std::chrono::seconds afterTheFirstBackup{30}; // by then the day's own was made, if it could be
constexpr std::chrono::hours betweenLooksAtBackups{1};
constexpr int besideButton = 12;

} // namespace

MainNotices::MainNotices(const QString& dataFolder, const UsageMarker& marker, Clock clock, QWidget* window)
    : m_dataFolder(dataFolder)
    , m_marker(marker)
    , m_clock(std::move(clock))
    , m_watch(BookFiles(dataFolder).usageMarker())
    , m_line(new NoticeLine(QStringLiteral("notices"), window))
    , m_others(new CommandButton({}, {}, window))
    , m_othersMenu(new QMenu(m_others))
    , m_sheet(new CommandButton({}, QStringLiteral("Φύλλο κλεισίματος"), window))
    , m_row(new QHBoxLayout)
    , m_undo(new CommandButton(QStringLiteral("undo"), {}))
{
    m_undo->setObjectName(QStringLiteral("undo"));
    m_undo->setFrameless(true);
    m_undo->setFocusPolicy(Qt::NoFocus); // a click leaves the focus where it is, and there is Ctrl+Z
    m_line->setButton(m_undo);
    m_undoStands.setSingleShot(true);
    connect(&m_undoStands, &QTimer::timeout, this, &MainNotices::forgetUndo);
    connect(m_undo, &CommandButton::clicked, this, &MainNotices::undoWanted);
    m_others->setObjectName(QStringLiteral("otherNotices"));
    m_others->setToolTip(QStringLiteral("Όσα άλλα υπάρχουν για το βιβλίο"));
    m_others->setFrameless(true);
    m_others->setFocusPolicy(Qt::NoFocus); // a key lists them
    bindKeys(KeyUse::Notices, window, Qt::WindowShortcut, [this] { list(Listed::All); });
    showKeyInTip(m_others, KeyUse::Notices);
    m_others->setFixedHeight(m_line->sizeHint().height());
    m_others->hide();
    connect(m_others, &CommandButton::clicked, this, [this] { list(Listed::Others); });
    m_sheet->setObjectName(QStringLiteral("closingSheet"));
    m_sheet->setToolTip(QStringLiteral("Ετοιμάζει το φύλλο κλεισίματος της ημέρας"));
    m_sheet->setFocusPolicy(Qt::NoFocus); // the sheet is in the tools menu too
    m_sheet->setFixedHeight(m_line->sizeHint().height()); // so that nothing moves when it comes and goes
    m_sheet->hide();
    connect(m_sheet, &CommandButton::clicked, this, &MainNotices::sheetWanted);
    m_row->setContentsMargins(0, 0, besideButton, 0);
    m_row->addWidget(m_line, 1);
    m_row->addWidget(m_others, 0, Qt::AlignBottom);
    m_row->addWidget(m_sheet, 0, Qt::AlignBottom);
    m_closedStands.setSingleShot(true);
    connect(&m_closedStands, &QTimer::timeout, this, &MainNotices::actionBegins);
    connect(m_line, &NoticeLine::clicked, this, [this] {
        if (const auto kind = m_board.shownKind())
            Q_EMIT followed(*kind);
    });
    connect(&m_watch, &MarkerWatch::seen, this, &MainNotices::tellHolder);
}

void MainNotices::tellLocks(LockReach locks, bool isReadOnly)
{
    if (locks == LockReach::Nobody)
        put(NoticeKind::LocksKeepNobodyOut, readOnlyNotice());
    else if (const auto weakness = weakDiskNotice(locks, isReadOnly || Folder(m_dataFolder).knowsSync()))
        put(NoticeKind::DiskIsWeak, *weakness);
}

void MainNotices::followMarker(bool isHeldByAnother)
{
    if (m_isRetired)
        return;
    m_watch.start();
    tellHolder(isHeldByAnother ? UsageMarker::look(BookFiles(m_dataFolder).usageMarker()) : std::nullopt);
}

void MainNotices::tellHolder(const std::optional<MarkerHolder>& seen)
{
    if (seen && !m_marker.isOwn(*seen))
        put(NoticeKind::HeldByAnother, heldNotice(*seen, m_clock.now()));
    else
        remove(NoticeKind::HeldByAnother);
}

void MainNotices::retire()
{
    m_isRetired = true;
    m_watch.stop();
    m_backupLooks.stop();
}

void MainNotices::put(NoticeKind kind, const Notice& notice)
{
    m_board.put(kind, notice);
    show();
}

void MainNotices::remove(NoticeKind kind)
{
    m_board.remove(kind);
    show();
}

void MainNotices::followBackup(DailyBackup& backup)
{
    connect(&backup, &DailyBackup::made, this, [this] {
        remove(NoticeKind::BackupFailed);
        lookAtBackups();
    });
    connect(&backup, &DailyBackup::failed, this,
        [this](const QString& reason) { put(NoticeKind::BackupFailed, backupFailedNotice(reason)); });
    connect(&m_backupLooks, &QTimer::timeout, this, [this] {
        m_backupLooks.start(betweenLooksAtBackups);
        lookAtBackups();
    });
    m_backupLooks.start(afterTheFirstBackup);
}

void MainNotices::lookAtBackups()
{
    const QDate today = m_clock.today();
    if (const auto old = oldBackupNotice(lastBackupOf(BookFiles(m_dataFolder), today), today); old && !m_isRetired)
        put(NoticeKind::BackupIsOld, *old);
    else
        remove(NoticeKind::BackupIsOld);
}

void MainNotices::tellUndo(const Notice& notice, const QString& offered)
{
    m_offersUndo = !offered.isEmpty();
    m_undo->setAccessibleName(QStringLiteral("Αναίρεση: ") + offered);
    m_undo->setToolTip(m_undo->accessibleName().toHtmlEscaped() + QStringLiteral(" (Ctrl+Z)"));
    put(NoticeKind::Undo, notice);
    m_undoStands.start(undoStandsFor);
}

void MainNotices::dayClosed(const ClosedDay& closed)
{
    forgetUndo();
    put(NoticeKind::DayClosed, dayClosedNotice(closed.day, closed.checkCode));
    m_closedStands.start(closedStandsFor);
}

void MainNotices::tellBalances(const std::optional<Notice>& found)
{
    if (found)
        put(NoticeKind::BalancesWrong, *found);
    else
        remove(NoticeKind::BalancesWrong);
}

void MainNotices::tellCorrection(const DayCorrection& correction)
{
    m_corrections.push_back(correction);
    put(NoticeKind::DayCorrected, correctedNotice(m_corrections));
}

void MainNotices::forgetCorrections()
{
    m_corrections.clear();
    remove(NoticeKind::DayCorrected);
}

void MainNotices::tellOpenDays(const OpenDays& open)
{
    if (open.count > 0)
        put(NoticeKind::OpenDays, openDaysNotice(open.count, open.since));
    else
        remove(NoticeKind::OpenDays);
}

void MainNotices::show()
{
    const Notice notice = m_board.shown();
    const std::size_t others = m_board.others().size();
    if (others > 0)
        m_others->setCaption(othersText(others));
    m_others->setVisible(others > 0);
    m_sheet->setVisible(m_board.has(NoticeKind::DayClosed));
    m_line->setLeadsOn(notice.leadsOn);
    m_line->showButton(m_offersUndo && m_board.shownKind() == NoticeKind::Undo);
    m_line->tell(notice.text, notice.reason, notice.isWarning ? ColourRole::Warning : ColourRole::Text);
}

void MainNotices::list(Listed listed)
{
    auto notices = m_board.others();
    if (const auto kind = m_board.shownKind(); kind && listed == Listed::All)
        notices.insert(notices.begin(), {*kind, m_board.shown()});
    if (notices.empty())
        return;
    m_othersMenu->clear();
    for (const auto& [kind, notice] : notices) {
        const QAction* const entry = m_othersMenu->addAction(QString(notice.text).replace(u'&', QStringLiteral("&&")));
        connect(entry, &QAction::triggered, this, [this, kind = kind, notice = notice] { act(kind, notice); });
    }
    m_othersMenu->setActiveAction(m_othersMenu->actions().constFirst());
    const QWidget& above = listed == Listed::All ? static_cast<const QWidget&>(*m_line) : *m_others;
    m_othersMenu->popup(above.mapToGlobal(QPoint(0, above.height())));
}

/// What a click on it would do if it were shown; where that is nothing, its reason is told.
void MainNotices::act(NoticeKind kind, const Notice& notice)
{
    if (notice.leadsOn)
        Q_EMIT followed(kind);
    else if (kind == NoticeKind::DayClosed)
        Q_EMIT sheetWanted();
    else if (kind == NoticeKind::Undo && m_offersUndo)
        Q_EMIT undoWanted();
    else
        showMessage(
            m_others->window(), QMessageBox::Information, QStringLiteral("Ειδοποίηση"), notice.text, notice.reason);
}

} // namespace lorvan

#pragma once

#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "marker/marker_watch.h"
#include "marker/notices.h"
#include "platform/clock.h"

#include <QObject>
#include <QTimer>

class QHBoxLayout;
class QMenu;

namespace lorvan {

class CommandButton;
class DailyBackup;
class NoticeLine;

/// The line below the main window's tabs: keeps the notices about the book up to date.
class MainNotices : public QObject {
    Q_OBJECT

public:
    /// The line belongs to the window; the marker must outlive the object.
    MainNotices(const QString& dataFolder, const UsageMarker& marker, Clock clock, QWidget* window);

    /// The line, the button that lists the notices behind the shown one, and the button that offers the closing sheet
    /// while there is a notice of a closing.
    [[nodiscard]] QHBoxLayout* row() const { return m_row; }

    /// Says in which way the book's folder is not reliable.
    void tellLocks(LockReach locks, bool isReadOnly);

    /// Shows who holds the book at present; from then on, the marker is looked at every few seconds. Throws
    /// MarkerError.
    void followMarker(bool isHeldByAnother);

    /// Shows whether the day's backup was made; from then on, looks every hour how old the last one is.
    void followBackup(DailyBackup& backup);
    void lookAtBackups();

    /// What is wrong with the balances; no value if nothing is.
    void tellBalances(const std::optional<Notice>& found);

    /// Stands until the user clicks on it.
    void tellCorrection(const DayCorrection& correction);
    void forgetCorrections();

    /// How many days are still open, until the next call; a count of zero takes the notice away.
    void tellOpenDays(const OpenDays& open);

    /// What can be undone, or has just been: shown for 20 seconds. With a name, the button is offered, to undo that.
    void tellUndo(const Notice& notice, const QString& offered);
    void forgetUndo() { remove(NoticeKind::Undo); }

    /// Shown for ten seconds, or until actionBegins(), in place of what can be undone.
    void dayClosed(const ClosedDay& closed);
    void actionBegins() { remove(NoticeKind::DayClosed); }

    /// Stops looking at the marker.
    void retire();

Q_SIGNALS:
    void followed(lorvan::NoticeKind kind); ///< The user clicked on a notice that leads on.
    void undoWanted(); ///< The last change, by the button or the list.
    void sheetWanted(); ///< The closing sheet of the day that was closed.

private:
    void tellHolder(const std::optional<MarkerHolder>& seen);
    void put(NoticeKind kind, const Notice& notice);
    void remove(NoticeKind kind);
    void show();
    enum class Listed { Others, All };
    void list(Listed listed);
    void act(NoticeKind kind, const Notice& notice);

    QString m_dataFolder;
    const UsageMarker& m_marker;
    Clock m_clock;
    MarkerWatch m_watch;
    NoticeLine* m_line;
    CommandButton* m_others;
    QMenu* m_othersMenu;
    CommandButton* m_sheet;
    QHBoxLayout* m_row;
    NoticeBoard m_board;
    CommandButton* m_undo;
    std::vector<DayCorrection> m_corrections;
    QTimer m_backupLooks;
    QTimer m_closedStands;
    QTimer m_undoStands;
    bool m_offersUndo = false;
    bool m_isRetired = false;
};

} // namespace lorvan

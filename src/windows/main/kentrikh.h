#pragma once

#include "backup/daily_backup.h"
#include "book/book.h"
#include "book/lock_trust.h"
#include "book/path_file.h"
#include "cashbook/late_sealing.h"
#include "cashbook/undo_list.h"
#include "controls/action_gate.h"
#include "controls/away_watch.h"
#include "csv/csv_import.h"
#include "main/main_notices.h"
#include "main/open_days_watch.h"
#include "main/session_end.h"
#include "marker/usage_marker.h"
#include "movements/cash_day.h"
#include "platform/authority.h"
#include "platform/clock.h"
#include "preview/background_run.h"
#include "printing/report_desk.h"
#include "proof/balance_watch.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <vector>

class QStackedWidget;

namespace lorvan {

class CardWindow;
class CheckWindow;
class CodesPage;
class HelpWindow;
class JournalWindow;
class MovementEntryPage;
class PictureWindow;
class PrintingPage;
class SearchWindow;
class TabBand;
class TotalsBar;
enum class CsvPlace;

/// The main window: the cash book, the codes and the printing page behind four tabs, and the day's totals below.
/// Owns the open book and the usage marker for the life of the process.
class Kentrikh : public QMainWindow {
    Q_OBJECT

public:
    /// The keys must outlive the window.
    Kentrikh(
        Book book, UsageMarker marker, Authority authority, DataFolderSettings settings, Clock clock, KeyRing& keys);
    ~Kentrikh() override;

    /// Shows today, claims the usage marker and sets the caption. Throws what the core throws; the program then ends.
    void initialise();

    /// True once the marker is released and the program is ending.
    [[nodiscard]] bool isClosed() const { return m_closed; }

    /// Shows the window "Ιστορικό", or brings it to the front: with the history of the movement that is chosen on the
    /// cash page, if one is.
    void openHistory();
    /// Shows the window "Αναζήτηση", or brings it to the front.
    void openSearch();
    /// Shows the closing sheet of the shown day, or says that the day is still open.
    void openClosingSheet();

    /// Shows the window "Εικόνα του βιβλίου", or brings it to the front.
    void openPicture();
    /// The same for the window "Καρτέλα κωδικού" with the card of a code.
    void openCard(qint32 code);
    /// Shows a movement on its day in the cash page's list (without a key the day alone), in place of the window
    /// `from`, which hides; Alt+Left leads back to it and to the day that was shown before. Loads and changes nothing;
    /// while a movement is loaded, or where a field is refused, everything stays as it is.
    void showMovement(QDate day, std::optional<qint64> key, QWidget* from);

    enum class CopyDay { Shown, Today };
    /// Copies a movement into the entry of a day, in place of the window `from`, which hides; Alt+Left leads back as
    /// above. Stores nothing.
    void copyMovement(qint64 key, CopyDay copyDay, QWidget* from);

    /// Closes the window without a question, whatever was typed.
    void end();

    /// Adds the entry "Βιβλία…" to the tools: it ends the program, if the user confirms that, and leads to the books.
    void offerBooks();
    /// True if the program ends in order to lead there.
    [[nodiscard]] bool leadsToBooks() const { return m_leadsToBooks; }

Q_SIGNALS:
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    QWidget* scrolling(QWidget* page);
    void addTabKeys();
    void addHistoryKey();
    void addReportKeys();
    void connectPages();
    void connectButtons();
    void connectTools();
    void connectUndo();
    void connectFigures();
    void connectHelp();
    void connectAbout();
    void connectBackup();
    void connectExchange();
    void backUpNow();
    void exportTables(); ///< Into a folder that the user chooses.
    void packMonth();
    void repairBook();
    void openCheck(const std::function<void(CheckWindow& window)>& prepare);
    void importTables(CsvPlace place);
    void openManual();

    void insertCode();
    void editGroups();
    void printReport();
    void previewDay();
    void previewKeys();
    /// Checks the fields of the cash page that were left and have not been checked yet. Returns false if one was
    /// refused or the program has ended meanwhile. Throws if the book was replaced.
    [[nodiscard]] bool settle();
    /// Tells the user over the window that asks when another computer holds the marker.
    [[nodiscard]] bool refusedByMarker(QWidget* asking);

    void takeUp(const StoredChange& change);
    void undoByKey(UndoStep step);
    [[nodiscard]] bool mayUndoByKey(UndoStep step) const;
    void undo(UndoStep step);
    void showUndone(const UndoResult& result);

    void followNotice(NoticeKind kind);
    void listOpenDays();
    void sealOlder();
    void tellProved(const LastProof& proof);
    void tellFound(const BalanceProof& proof);
    void openTool(const std::function<void()>& open);
    /// Shows what the last proof has found, or else checks the whole book.
    void checkBook(bool showsFound);
    void goToDay(QDate day);
    void hideTools(); ///< The windows beside this one.
    void openCardOfChosen();
    void addSearchKey();
    void addBackKey();
    /// Tells the user over the window that asks when a movement is loaded, which keeps its day on screen.
    [[nodiscard]] bool mayLeaveDay(QWidget* asking);
    [[nodiscard]] bool leaveFor(QDate day, QWidget* from);
    void goToMovement(QDate day, std::optional<qint64> key, QWidget* from);
    void goBack();
    /// Where a line of a report leads.
    void followLine(const RowSubject& subject, QWidget* preview);
    void printClosingSheet(QDate day);
    /// Offers to enter the cash that was counted, unless this user cannot keep it. Returns false if no sheet is wanted.
    [[nodiscard]] bool askForCount(QDate day);

    void selectTab(int tab);
    void keepTab();
    void showTab(int tab);
    void refreshCaption();
    void follow(const std::optional<MachineIdentity>& holder);
    void followMarker(int tab);
    void backUpIfHeld();
    void fillPage(int tab, int earlierTab);
    [[nodiscard]] bool confirmExit();
    void leave(); ///< Ends the program if the user confirms it.
    void askToEnd();
    void lookAgain();

    Book m_book;
    UsageMarker m_marker;
    const Authority m_authority;
    const DataFolderSettings m_settings;
    KeyRing& m_keys;
    const Clock m_clock;
    const LockReach m_locks;
    UndoList m_undoList;
    TabBand* m_band;
    QStackedWidget* m_pages;
    MovementEntryPage* m_entryPage;
    CodesPage* m_codesPage;
    PrintingPage* m_printingPage;
    TotalsBar* m_totals;
    MainNotices m_notices;
    OpenDaysWatch m_openDays;
    BalanceWatch m_balances;
    LateSealing m_sealing;
    std::optional<BalanceProof> m_found; ///< By the last proof, if the balances are not proved.
    const ActionGate m_gate;
    ReportDesk m_reports;
    ReportDesk m_sheets; ///< For what is no report of the book and takes the place of none.
    std::unique_ptr<JournalWindow> m_history; ///< Made when it is first asked for.
    std::unique_ptr<PictureWindow> m_picture; ///< The same.
    std::unique_ptr<CardWindow> m_card; ///< The same.
    std::unique_ptr<HelpWindow> m_help; ///< The same.
    std::unique_ptr<SearchWindow> m_search; ///< The same.
    DailyBackup m_backup;
    BackgroundRun m_toolRun; ///< Of an export or an import.
    SessionEnd m_session;
    AwayWatch m_away;
    struct Origin {
        QPointer<QWidget> window;
        QDate day; ///< That was shown before,
        QDate shown; ///< and the one shown instead.
        int tab = 0; ///< Whose page was shown before.
    };
    std::vector<Origin> m_origins; ///< Of the movements that were gone to, the last one at the end.
    QDate m_closedDay; ///< The last one that was closed here.
    bool m_isEnding = false; ///< Nothing more is asked.
    int m_tab = 0; ///< The tab whose page is shown.
    bool m_leadsToBooks = false;
    bool m_closed = false;
};

} // namespace lorvan

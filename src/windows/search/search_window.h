#pragma once

#include "controls/action_gate.h"
#include "platform/clock.h"
#include "platform/work_pace.h"
#include "search/search_reader.h"

#include <QDialog>
#include <QHash>

#include <functional>
#include <optional>

class QLayout;

namespace lorvan {

class CommandButton;
class EntryField;
class SearchModel;
class SearchReadings;
class TableList;
class ThemedLabel;

/// The window "Αναζήτηση": one field over all movements, and what is found as it is typed. It only reads. Stands beside
/// the main window; Escape closes it. The text, the chosen readings and the selected row stay while it is hidden; when
/// it is shown again, the search is made again and the rows stay until that has ended.
class SearchWindow : public QDialog {
    Q_OBJECT

public:
    /// What the window asks for; `window` is this one.
    struct Requests {
        std::function<void(QDate day, qint64 key, QWidget* window)> show; ///< A movement on its day.
        /// Into the entry of the shown day, or of today.
        std::function<void(qint64 key, bool toToday, QWidget* window)> copy;
        std::function<void(qint32 code)> card; ///< Shows the card of a code.
        std::function<void()> picture; ///< Shows that of the book.
        std::function<void(const SearchQuery& query, QWidget* window)> print;
    };

    /// The keys must outlive the window.
    SearchWindow(BookFiles files, KeyRing& keys, Clock clock, Requests requests, QWidget* parent);
    ~SearchWindow() override;

    /// Shows the window, or brings it to the front, with the text of the field selected.
    void present();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    void setUpList();
    QLayout* fieldRow();
    QLayout* commandRow();
    void connectCommands();
    void connectReader();
    void setTabOrders();

    void search();
    void searchAgain();
    void begin();
    void choose(std::size_t term, SearchReading reading);
    void take(SearchBatch batch);
    [[nodiscard]] int lastRowInUse() const;
    void end();
    void showAnew();
    void readOnAtEnd();
    void widenAmounts();
    void tellState();

    [[nodiscard]] bool keyInField(const QKeyEvent& event);
    [[nodiscard]] bool keyInList(const QKeyEvent& event);
    void goIntoList();
    void goToMovement();
    void copyMovement(bool toToday);
    void showCard();
    void print();
    void offerRecent();
    void remember();

    const Clock m_clock;
    const Requests m_requests;
    const ActionGate m_gate;
    EntryField* m_field;
    CommandButton* m_recent;
    SearchReadings* m_readings;
    SearchModel* m_model;
    TableList* m_list;
    ThemedLabel* m_state;
    CommandButton* m_go;
    CommandButton* m_again;
    CommandButton* m_printing;
    CommandButton* m_close;
    SearchQuery m_query;
    QHash<QString, SearchReading> m_chosen; ///< By the text of the term.
    std::optional<SearchHits> m_anew; ///< What a search that is made again has found so far.
    WorkPace m_pace; ///< Of the search that is under way.
    QString m_failure; ///< Why not all was looked through.
    SearchReader m_reader; ///< The last one: it ends first.
};

} // namespace lorvan

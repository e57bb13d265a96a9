#pragma once

#include "controls/action_gate.h"
#include "journal/journal_reader.h"
#include "platform/clock.h"

#include <QDialog>

#include <functional>

class QLayout;

namespace lorvan {

class CommandButton;
class JournalDetails;
class JournalFilters;
class JournalModel;
class TableList;
class ThemedLabel;

/// The window "Ιστορικό": every change of the book, newest first, with its states before and after. It only reads.
/// Stands beside the main window; Escape closes it.
class JournalWindow : public QDialog {
    Q_OBJECT

public:
    /// Previews what the filter accepts; `window` is the one that asks.
    using Print = std::function<void(const JournalFilter& filter, QWidget* window)>;

    /// The keys must outlive the window.
    JournalWindow(BookFiles files, KeyRing& keys, Clock clock, Print print, QWidget* parent);
    ~JournalWindow() override;

    /// Shows the window, or brings it to the front, and reads what has been added; with a subject only its own history.
    void present(const QString& subject = {});

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut(QWidget* lists);
    QWidget* bothLists();
    QLayout* commandRow();
    void connectCommands();
    void connectReader();

    void readAgain();
    void readOnAtEnd();
    void showRow();
    void showHistory();
    void tellState();
    [[nodiscard]] const JournalRow* selectedRow() const;

    const Print m_print;
    const ActionGate m_gate;
    JournalReader m_reader;
    JournalModel* m_model;
    JournalFilters* m_filters;
    ThemedLabel* m_state;
    TableList* m_list;
    JournalDetails* m_details;
    CommandButton* m_history;
    CommandButton* m_all;
    CommandButton* m_again;
    CommandButton* m_printing;
    CommandButton* m_close;
    QString m_failure; ///< Why no more can be read.
    bool m_hasJournal = true;
};

} // namespace lorvan

#pragma once

#include "books/book_choice.h"
#include "controls/action_gate.h"
#include "controls/reading_thread.h"
#include "platform/clock.h"
#include "preview/background_run.h"

#include <QDialog>
#include <QTimer>

namespace lorvan {

class BooksModel;
class CommandButton;
class TableList;
class ThemedLabel;

/// The window of the door: the books on this computer, with what can be done about them. While the program runs it only
/// says which book is open.
class BooksWindow : public QDialog {
    Q_OBJECT

public:
    /// `choice` must outlive the window.
    BooksWindow(const BookChoice& choice, Clock clock);

    /// Reads the list again and looks at each book in the background; selects the book in that folder, if there is one.
    void refill(const QString& selected = {});

    /// Puts a backup in the place of the book that the program opens, shows the report and has the book opened.
    void restore(const QString& backup);

    void reject() override; ///< Ends the door.

Q_SIGNALS:
    void bookChosen(const DataFolderSettings& book);
    void programAsked(); ///< The running program is to come to the front.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    QLayout* commandColumn();
    CommandButton* addCommand(const char* name, const QString& icon, const QString& caption, const QString& tip);
    void connectCommands();
    void followProgram();
    void followSelection();
    void describe(int row);
    [[nodiscard]] int selectedRow() const;
    void openSelected();
    void addExisting();
    void makeSample();
    void forgetSelected();
    /// Adds a book that was made or found to the list and selects it.
    void take(const DataFolderSettings& book);

    const BookChoice& m_choice;
    Clock m_clock;
    const ActionGate m_gate;
    BackgroundRun m_run;
    BooksModel* m_model;
    TableList* m_list;
    ThemedLabel* m_heading;
    ThemedLabel* m_about; ///< The selected book, or the open one.
    std::vector<CommandButton*> m_commands; ///< In the order of the column.
    CommandButton* m_open;
    CommandButton* m_new;
    CommandButton* m_existing;
    CommandButton* m_fromBackup;
    CommandButton* m_fromOlder;
    CommandButton* m_sample;
    CommandButton* m_firstUser;
    CommandButton* m_forget;
    CommandButton* m_end;
    ReadingThread m_looks;
    QTimer m_programWatch;
    bool m_programRuns = false;
};

} // namespace lorvan

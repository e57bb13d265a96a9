#pragma once

#include "book/book_files.h"
#include "controls/action_gate.h"
#include "platform/clock.h"
#include "platform/engine/connection.h"
#include "preview/background_run.h"

#include <QDialog>

#include <optional>

namespace lorvan {

class CommandButton;
class EntryField;
class KeyRing;
class PathLabel;
class ThemedLabel;

/// The window "Πακέτο μήνα": asks for a month and a place, and writes what an accountant needs of it into one ZIP file.
class MonthWindow : public QDialog {
    Q_OBJECT

public:
    /// `keys` must outlive the window. Throws SqlError.
    MonthWindow(BookFiles book, KeyRing& keys, QString heading, Clock clock, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    /// The typed month; says what is in it, or what is wrong.
    std::optional<QDate> readMonthField();
    void write();
    /// The path that the user gives; empty if they cancel.
    [[nodiscard]] QString askPath(QDate month);
    void tell(const QString& text, const QString& path = {});

    const BookFiles m_book;
    KeyRing& m_keys;
    Connection m_main; ///< Only reads.
    const QString m_heading;
    const Clock m_clock;
    const ActionGate m_gate;
    BackgroundRun m_run;
    EntryField* m_month;
    ThemedLabel* m_state;
    PathLabel* m_made;
    CommandButton* m_write;
    CommandButton* m_close;
};

} // namespace lorvan

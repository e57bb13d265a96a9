#pragma once

#include "book/book_files.h"
#include "controls/command_button.h"
#include "platform/clock.h"
#include "preview/background_run.h"

#include <functional>

class QAction;
class QMenu;

namespace lorvan {

class ActionGate;
class KeyRing;
enum class CsvPlace;

/// The administrator's button with a menu of what touches the whole book: a backup in its place, CSV files also into
/// closed days, journal and seals.
class AdministratorTools : public CommandButton {
    Q_OBJECT

public:
    /// The keys and the gate must outlive the button.
    AdministratorTools(BookFiles files, KeyRing& keys, Clock clock, const ActionGate& gate, QWidget* parent);

    /// Offers the restore, which the door carries out; `heading` is the book's name.
    void offerRestore(const QString& heading);
    /// The work in progress, if any, is given up.
    void cancel() { m_run.cancel(); }

Q_SIGNALS:
    /// The user has seen what is in the backup and wants it in the place of the book.
    void restoreAsked(const QString& backup);

private:
    QAction* addEntry(const QString& objectName, const QString& text, const std::function<void()>& step);
    void chooseBackup();
    void importTables(CsvPlace place);

    const BookFiles m_files;
    const Clock m_clock;
    const ActionGate& m_gate;
    BackgroundRun m_run;
    QMenu* m_menu;
    QAction* m_restore;
    QString m_heading;
};

} // namespace lorvan

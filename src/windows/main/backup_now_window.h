#pragma once

#include "backup/second_place.h"
#include "book/book_files.h"
#include "controls/action_gate.h"
#include "platform/clock.h"
#include "preview/background_run.h"

#include <QDialog>

class QGridLayout;
class QLayout;

namespace lorvan {

class CommandButton;
class KeyRing;
class PathLabel;
class ThemedLabel;

/// The window "Αντίγραφο τώρα": makes a backup by hand, and a copy of it in the book's second place, which is chosen
/// here.
class BackupNowWindow : public QDialog {
    Q_OBJECT

public:
    /// `keys` must outlive the window.
    BackupNowWindow(BookFiles book, KeyRing& keys, Clock clock, QWidget* parent);

Q_SIGNALS:
    void made();

private:
    void layOut();
    void addPlaces(QGridLayout& grid);
    QLayout* commandRow();
    void showPlaces();
    void choosePlace();
    void forgetPlace();
    void backUp();
    void tell(const QString& text, const QString& path);

    const BookFiles m_book;
    KeyRing& m_keys;
    const Clock m_clock;
    const SecondPlace m_second;
    const ActionGate m_gate;
    BackgroundRun m_run;
    PathLabel* m_place;
    CommandButton* m_choose;
    CommandButton* m_forget;
    ThemedLabel* m_state;
    PathLabel* m_made;
    CommandButton* m_now;
    CommandButton* m_close;
};

} // namespace lorvan

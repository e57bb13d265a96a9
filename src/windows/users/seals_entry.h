#pragma once

#include "book/book_files.h"
#include "controls/command_button.h"
#include "platform/clock.h"

class QMenu;

namespace lorvan {

class ActionGate;
class KeyRing;

/// The administrator's button for journal and seals, with a menu of two entries. Failures are shown in a box.
class SealsEntry : public CommandButton {
    Q_OBJECT

public:
    /// The keys and the gate must outlive the button.
    SealsEntry(BookFiles files, KeyRing& keys, Clock clock, const ActionGate& gate, QWidget* parent);

private:
    void addEntry(const QString& objectName, const QString& text, void (SealsEntry::*step)());

    /// Shows what journal and seals contradict, and records it as accepted if the user says so.
    void acceptFindings();
    /// Seals days that were closed without a seal. The window stays responsive in the meantime; if it is closed, the
    /// rest is left for another time.
    void sealOlder();

    const BookFiles m_files;
    KeyRing& m_keys;
    const Clock m_clock;
    const ActionGate& m_gate;
    QMenu* m_menu;
};

} // namespace lorvan

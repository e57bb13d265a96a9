#pragma once

#include "book/book_files.h"
#include "platform/clock.h"

#include <QObject>

class QMenu;
class QWidget;

namespace lorvan {

class ActionGate;
class KeyRing;

/// What the administrator can do about journal and seals: two entries of a menu. Failures are shown in a box.
class SealEntries : public QObject {
    Q_OBJECT

public:
    /// The keys, the gate and the menu must outlive the object. `owner` is a widget of the window over which it asks.
    SealEntries(BookFiles files, KeyRing& keys, Clock clock, const ActionGate& gate, QMenu* menu, QWidget* owner);

private:
    void addEntry(const QString& objectName, const QString& text, void (SealEntries::*step)());
    [[nodiscard]] QWidget* window() const;

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
    QWidget* m_owner;
};

} // namespace lorvan

#pragma once

#include "book/book_files.h"
#include "platform/clock.h"

#include <QWidget>

#include <array>

namespace lorvan {

class CommandButton;
class KeyRing;
class PathLabel;
class ThemedLabel;

/// The last row of the enlarged sign-in window: the buttons of the administrator's operations and between them, after a
/// deletion, the path of the book's copy (`copyPath`). Failures are shown in a box.
class AdministrationRow : public QWidget {
    Q_OBJECT

public:
    /// `keys` must outlive the row.
    AdministrationRow(BookFiles files, KeyRing& keys, Clock clock, QWidget* parent);

    /// Lays out the row with the buttons that unlock, close days and delete the data.
    /// `beside` stands behind the second.
    void layOut(const std::array<CommandButton*, 3>& commands, CommandButton* beside);

    /// Makes the usage marker free, whoever holds it.
    void unlock();
    /// Asks first. The window stays responsive in the meantime; if it is closed, no day is closed.
    void closeDays();
    /// Asks first; the delete button is disabled while the deletion is running.
    void deleteData();

    [[nodiscard]] PathLabel* copyPath() const { return m_copyPath; }

private:
    QLayout* copyLines();

    BookFiles m_files;
    KeyRing& m_keys;
    Clock m_clock;
    CommandButton* m_delete = nullptr;
    ThemedLabel* m_copyCaption;
    PathLabel* m_copyPath;
};

} // namespace lorvan

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

/// The last row of the enlarged sign-in window: the buttons of the administrator's operations, and between them, after
/// a deletion, where the copy of the book lies (`copyPath`). Failures are told in a box.
class AdministrationRow : public QWidget {
    Q_OBJECT

public:
    /// `keys` must outlive the row.
    AdministrationRow(BookFiles files, KeyRing& keys, Clock clock, QWidget* parent);

    /// Lays the row out with the buttons that unlock, close days and delete the data.
    void layOut(const std::array<CommandButton*, 3>& commands);

    /// Frees the usage marker, whoever holds it.
    void unlock();
    /// After a question. The window stays alive meanwhile; when it is closed, no day is.
    void closeDays();
    /// After a question; the button that deletes is disabled while it runs.
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

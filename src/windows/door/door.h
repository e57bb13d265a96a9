#pragma once

#include "books/book_choice.h"
#include "platform/clock.h"
#include "platform/files/instance_guard.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

namespace lorvan {

class BooksWindow;

/// The running door: opens the only known book at once, or shows the window of the books. When a book is chosen, this
/// process becomes the program.
class Door : public QObject {
    Q_OBJECT

public:
    /// `doorFile` is the executable; the program is looked for beside it.
    Door(const QString& doorFile, Clock clock);
    ~Door() override;

    /// Returns the exit status if the process is to end: 0 when another door runs, which is asked to come to the front,
    /// and 2 when the words on the command line are not understood. `wantsChoice`: the user asks for the window in
    /// another way.
    [[nodiscard]] std::optional<int> start(const QStringList& words, bool wantsChoice);

    void end();

private:
    void show();
    void callProgram();
    void open(const DataFolderSettings& book);
    void openFolder(const QString& folder);
    void restore(const QString& backup);

    Clock m_clock;
    QString m_programFile;
    InstanceGuard m_instance;
    BookChoice m_choice;
    std::unique_ptr<BooksWindow> m_window;
};

} // namespace lorvan

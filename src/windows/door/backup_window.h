#pragma once

#include "books/known_books.h"
#include "door/transfer_window.h"
#include "platform/clock.h"

namespace lorvan {

/// "Από αντίγραφο": takes a book out of a backup, into a folder of its own or in place of a book that is there.
class BackupWindow : public TransferWindow {
    Q_OBJECT

public:
    /// `books` are the known ones, of which the backup may be.
    BackupWindow(Clock clock, std::vector<KnownBook> books, QWidget* parent);

protected:
    [[nodiscard]] QString browse() override;
    [[nodiscard]] QString faultOfTarget(const QString& folder) const override;
    [[nodiscard]] std::optional<QString> transfer(const QString& source, const QString& folder) override;

private:
    const Clock m_clock;
    const std::vector<KnownBook> m_books;
};

} // namespace lorvan

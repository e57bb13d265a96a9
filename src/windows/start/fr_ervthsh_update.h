#pragma once

#include "book/schema_upgrade.h"
#include "platform/clock.h"

#include <QDialog>

#include <stdexcept>

class QGroupBox;

namespace lorvan {

class CommandButton;
class EntryField;

/// The opening-balance window: asks, once in a book's life, for the last day whose cash is known, and for the cash on
/// that day. It cannot be closed without a confirmed answer.
class FR_ErvthshUpdate : public QDialog {
    Q_OBJECT

public:
    explicit FR_ErvthshUpdate(Clock clock);

    /// The confirmed answer, once the window has been accepted.
    [[nodiscard]] const OpeningBalance& answer() const { return m_answer; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QGroupBox* frame(const QString& title, int index, EntryField* field);
    void rewriteDate();
    void confirm();
    void refuse(const QString& title, const QString& text, EntryField* field);

    Clock m_clock;
    OpeningBalance m_answer;
    EntryField* m_date;
    EntryField* m_amount;
    CommandButton* m_confirm;
};

/// Shows the opening-balance window until it is answered. Throws OpeningBalanceNotGiven if the program is told to end
/// in the meantime.
[[nodiscard]] OpeningBalance askOpeningBalance(const Clock& clock);

/// The program ended before the question was answered.
class OpeningBalanceNotGiven : public std::runtime_error {
public:
    OpeningBalanceNotGiven();
};

} // namespace lorvan

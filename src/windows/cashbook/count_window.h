#pragma once

#include "cashbook/counted_cash.h"
#include "controls/action_gate.h"

#include <QDialog>

#include <functional>
#include <vector>

class QGridLayout;
class QGroupBox;
class QVBoxLayout;

namespace lorvan {

class CommandButton;
class EntryField;
class ThemedLabel;

/// Asks how many there are of each note and coin, and shows their sum and its difference from the day's balance while
/// one types. It is accepted with a count that was kept, or without one; Escape and the frame reject it.
class CountWindow : public QDialog {
    Q_OBJECT

public:
    CountWindow(QDate day, Currency balance, const CountedCash& known, QWidget* parent);

    /// Keeps the count; if it returns false, it has told the user why, and the window stays.
    using Keeping = std::function<bool(const CountedCash& counted)>;
    void setKeeping(Keeping keep) { m_keep = std::move(keep); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QGroupBox* frame(const QString& title, std::size_t first, std::size_t end);
    void addRow(QGridLayout& grid, int row, std::size_t kind);
    QGridLayout* totals(Currency balance);
    void addButtons(QVBoxLayout& rows);
    void showSums();
    void confirm();

    const ActionGate m_gate;
    const Currency m_balance;
    CountedCash m_counted;
    Keeping m_keep;
    std::vector<EntryField*> m_fields; ///< By kind, like the amounts.
    std::vector<ThemedLabel*> m_amounts;
    ThemedLabel* m_sum;
    ThemedLabel* m_difference;
};

} // namespace lorvan

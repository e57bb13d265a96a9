#pragma once

#include "movements/amount_tape.h"

#include <QDialog>

class QPlainTextEdit;

namespace lorvan {

class ThemedLabel;

/// The window "Ταινία": amounts one below the other with their sum. Enter and "+" begin the next line, "-" one that is
/// subtracted; Enter on an empty last line, Ctrl+Enter and F3 take the sum. A line that is no amount stays and is
/// marked.
class TapeWindow : public QDialog {
    Q_OBJECT

public:
    /// `begun` is the first line; it may be empty.
    TapeWindow(const QString& begun, QWidget* parent);

    /// The sum that was taken, after the window was accepted.
    [[nodiscard]] Currency sum() const { return m_tape.sum; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool takeKey(const QKeyEvent& event);
    void beginLine(const QString& sign);
    void enter();
    void readLines();
    void mark();
    void takeSum();

    QPlainTextEdit* m_lines;
    ThemedLabel* m_sum;
    ThemedLabel* m_refusal;
    Tape m_tape;
};

} // namespace lorvan

#pragma once

#include "book/book_files.h"
#include "controls/action_gate.h"
#include "platform/authority.h"
#include "preview/background_run.h"
#include "proof/balance_proof.h"
#include "proof/findings_text.h"

#include <QDate>
#include <QDialog>

#include <functional>
#include <optional>

class QLabel;
class QLayout;

namespace lorvan {

class CommandButton;
class EntryField;
class KeyRing;
class PlainList;
class ThemedLabel;

/// The window "Έλεγχος": checks the book as the companion does, lists what was found, leads to the days concerned, lets
/// users who may change cash records repair the cash days, and says what the book knows of a check code on paper.
class CheckWindow : public QDialog {
    Q_OBJECT

public:
    /// Whether data may be changed now. Where not, it tells the user why in a box over the given window.
    using MayChange = std::function<bool(QWidget* window)>;

    /// `keys` must outlive the window. `mayChange` is asked before a repair.
    CheckWindow(BookFiles book, KeyRing& keys, Authority authority, MayChange mayChange, QWidget* parent);

    /// What a proof of the balances has found.
    void showFound(const BalanceProof& proof);
    /// Checks the whole book, in the background; the user may cancel.
    void check();
    /// The same for somebody who wants to repair: leads to the button for it, or says that there is nothing to repair.
    void checkForRepair();

    /// The day that the user wants to go to, if any.
    [[nodiscard]] std::optional<QDate> chosen() const { return m_chosen; }

Q_SIGNALS:
    void opened(); ///< The window is shown for the first time.
    void checked();
    void repaired();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    QLayout* codeRow();
    QLayout* commandRow();
    [[nodiscard]] bool runCheck(); ///< False if it was given up.
    void askCode();
    /// The code that was typed and has not been answered yet.
    void answerCode();
    void repair();
    [[nodiscard]] bool confirmRepair();
    void tell(const QString& summary, const BookFindings& findings, const std::vector<CheckLine>& lines);
    void choose(const QModelIndex& line);

    const BookFiles m_book;
    KeyRing& m_keys;
    const Authority m_authority;
    const MayChange m_mayChange;
    const ActionGate m_gate;
    BackgroundRun m_run;
    QLabel* m_summary;
    PlainList* m_list;
    EntryField* m_code;
    CommandButton* m_askCode;
    ThemedLabel* m_answer;
    QString m_answered; ///< The text of the field that was answered last.
    CommandButton* m_check;
    CommandButton* m_repair;
    CommandButton* m_go;
    CommandButton* m_close;
    BookFindings m_findings;
    std::optional<QDate> m_chosen;
    bool m_wasOpened = false;
};

} // namespace lorvan

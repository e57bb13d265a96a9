#pragma once

#include "controls/action_gate.h"
#include "help/manual.h"

#include <QDialog>

class QLineEdit;
class QTextBrowser;

namespace lorvan {

class CommandButton;
class PlainList;
class ThemedLabel;

/// The window "Οδηγίες": the manual, its chapters and a search. Stands beside the window that it explains; Escape
/// closes it.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    /// Previews the manual; `window` is the one that asks. Without it there is no such button.
    using Print = std::function<void(QWidget* window)>;

    explicit HelpWindow(Print print, QWidget* parent);

    /// Shows the window, or brings it to the front, at the chapter with that title; with another title, where it was.
    void present(const QString& chapter);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    void connectControls();
    void fill();
    void dress();

    void goTo(int position, int length);
    void followChapter();
    void findNext(bool isBackward);

    const Print m_print;
    const ActionGate m_gate;
    std::unique_ptr<QTextDocument> m_manual;
    std::vector<ManualChapter> m_chapters;
    PlainList* m_contents;
    QLineEdit* m_sought;
    ThemedLabel* m_answer;
    QTextBrowser* m_text;
    CommandButton* m_printing;
    CommandButton* m_close;
};

} // namespace lorvan

#pragma once

#include "controls/action_gate.h"
#include "preview/background_run.h"

#include <QDialog>

class QGridLayout;
class QScrollArea;

namespace lorvan {

class CommandButton;
class EntryField;

/// A dialog of the door: fields, and below them a button that does it and one that leaves. On a low screen the fields
/// scroll. It asks before it is left with something typed.
class EntryDialog : public QDialog {
    Q_OBJECT

public:
    void reject() override;

protected:
    /// `doing` is the caption of the button that does it.
    EntryDialog(const QString& objectName, const QString& title, const QString& doing, QWidget* parent);

    /// Shows the fields; to be called once, at the end of the constructor.
    void setFields(QWidget* fields, QSize firstSize);
    /// Says what is wrong and goes back to the field.
    void refuse(const QString& text, QWidget& field);

    /// Does what the dialog is for, and accepts it once that is done.
    virtual void carryOut() = 0;
    /// Whether leaving would lose something.
    [[nodiscard]] virtual bool hasTyped() const = 0;

    void keyPressEvent(QKeyEvent* event) override;

    BackgroundRun& backgroundRun() { return m_run; }
    void closeEvent(QCloseEvent* event) override;

private:
    const ActionGate m_gate;
    BackgroundRun m_run;
    QScrollArea* m_area;
    CommandButton* m_do;
    CommandButton* m_leave;
};

/// A field with an object name, its caption being its accessible name.
[[nodiscard]] EntryField* newEntry(const char* name, const QString& caption);

/// Adds a row with a caption, which is the control's accessible name, and the control; `beside` follows it.
void addEntryRow(QGridLayout* grid, const QString& caption, QWidget* control, QWidget* beside = nullptr);

/// A small button beside a field, which asks for a folder or a file. Enter and the Tab key pass it by; Ctrl+O in the
/// field presses it.
[[nodiscard]] CommandButton* newBrowseButton(const char* name, const QString& tip, EntryField* field);

} // namespace lorvan

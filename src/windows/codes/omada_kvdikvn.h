#pragma once

#include "codes/group_maintenance.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "movements/stored_change.h"
#include "platform/authority.h"

#include <QDialog>

#include <functional>

class QLayout;
class QModelIndex;

namespace lorvan {

class CommandButton;
class EntryField;
class PlainList;
class RowFilterField;

/// The groups window, in which groups of codes are added, renamed and deleted. A double click on a group offers to
/// rename or delete it, a click takes the offer back. Modal; leaving the window hides it.
class OmadaKvdikvn : public QDialog {
    Q_OBJECT

public:
    /// Returns true if data may be changed now; if not, it has told the user why, in a box over the given window.
    using MayChange = std::function<bool(QWidget* window)>;

    /// `main` must outlive the window. `mayChange` is called before each change. Throws SqlError if the groups cannot
    /// be read.
    OmadaKvdikvn(Connection& main, Authority authority, MayChange mayChange, QWidget* parent = nullptr);

Q_SIGNALS:
    void stored(const lorvan::StoredChange& change); ///< A group was renamed.

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Command { Exit, Add, Rename, Remove };

    void layOut();
    QLayout* commandRow();
    CommandButton* addCommand(Command index, const QString& icon, const QString& caption, const QString& tip);
    void connectCommands();
    void connectList();

    void addGroup();
    void renameGroup();
    void removeGroup();
    void explain(GroupRefusal refusal, Command refused);

    void refill();
    void load(const QModelIndex& index);
    void release();
    void setLoaded(std::optional<qint32> group);
    [[nodiscard]] bool holdsUnstoredText() const;

    Connection& m_main;
    const Authority m_authority;
    const MayChange m_mayChange;
    const ActionGate m_gate;
    PlainList* m_list;
    RowFilterField* m_filter = nullptr; ///< Of the list.
    EntryField* m_name;
    ControlArray<CommandButton> m_commands;
    std::optional<qint32> m_loaded; ///< The group that may be renamed and deleted.
};

} // namespace lorvan

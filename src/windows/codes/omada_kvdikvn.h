#pragma once

#include "codes/group_maintenance.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "platform/authority.h"

#include <QDialog>

#include <functional>

class QLayout;
class QModelIndex;

namespace lorvan {

class CommandButton;
class EntryField;
class PlainList;

/// The groups window: adds, renames and deletes the groups that codes belong to. A click on a group makes ready to add
/// one, a double click offers to rename and delete the group. Modal; leaving it hides it.
class OmadaKvdikvn : public QDialog {
    Q_OBJECT

public:
    /// Whether data may be changed now. Where not, it tells the user why in a box over the given window.
    using MayChange = std::function<bool(QWidget* window)>;

    /// `main` must outlive the window. `mayChange` is asked before each change. Throws SqlError when the groups cannot
    /// be read.
    OmadaKvdikvn(Connection& main, Authority authority, MayChange mayChange, QWidget* parent = nullptr);

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
    EntryField* m_name;
    ControlArray<CommandButton> m_commands;
    std::optional<qint32> m_loaded; ///< The group that may be renamed and deleted.
};

} // namespace lorvan

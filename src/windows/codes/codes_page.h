#pragma once

#include "codes/code_maintenance.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "movements/stored_change.h"
#include "platform/authority.h"

#include <QWidget>

#include <optional>
#include <vector>

class QCheckBox;
class QGroupBox;
class QHBoxLayout;
class QLayout;
class QLineEdit;
class QModelIndex;

namespace lorvan {

class Book;
class CommandButton;
class EntryField;
class ListReader;
class PlainList;
class RowFilterField;

/// The codes page: its panel `Panel1(2)` has the codes of movements and the groups they belong to. A click on a code
/// shows it, a double click allows modifying and removing it; a double click on a group puts the group into the fields.
/// For users who may not modify codes, the panel is disabled, but they can scroll its lists.
class CodesPage : public QWidget {
    Q_OBJECT

public:
    CodesPage(Book& book, Authority authority, QWidget* parent);

    /// Returns the page's button with this index; the window that holds the page connects it.
    [[nodiscard]] CommandButton* button(int index) const { return m_commands[index]; }

    /// Called when the tab is selected: empties the fields and reads codes and groups again. Throws SqlError.
    void start();

    void insertCode();
    void modifyCode();
    void removeCode();

    /// To be called after the groups were edited. The fields are updated for a renamed or deleted group. Throws
    /// SqlError.
    void refreshGroups();

    /// The code that was last clicked in the list of codes, if any.
    [[nodiscard]] std::optional<qint32> shownCode() const;

    /// True if nothing was typed since the fields were filled or stored.
    [[nodiscard]] bool isUntouched() const { return typed() == m_settled; }
    /// Reads codes and groups again after an undo or redo; what was typed is kept. Throws SqlError.
    void lookAgain();

Q_SIGNALS:
    void stored(const lorvan::StoredChange& change); ///< By this user, just now; only of the kinds that can be undone.
    void codesChanged();

private:
    enum List { Codes, Groups, CodesOfGroup };

    void layOut();
    QGroupBox* entryFrame();
    QLayout* commandRow();
    QLayout* codesColumn();
    QLayout* groupsColumn();
    EntryField* addField(int index, const QString& name);
    CommandButton* addCommand(
        int index, const QString& icon, const QString& text, const QString& tip, int captionIndex);
    PlainList* addList(int index, const QString& name, const QString& tip);
    void addFilter(QHBoxLayout& heading);
    void setTabOrders();
    void connectLists();

    void refill();
    void refillGroups();
    void setGroup(qint32 group);
    void showCodesOfGroup(qint32 group);
    void selectCode(std::optional<qint64> row);

    void codeClicked(const QModelIndex& index);
    void codeOpened(const QModelIndex& index);
    bool show(qint64 row);
    void groupClicked(const QModelIndex& index);
    void groupOpened(const QModelIndex& index);
    void setOffered(bool isOffered);

    [[nodiscard]] CodeEntry typed() const;
    void clearFields();
    void settleFields();
    void changed();
    void explain(CodeRefusal refusal);
    [[nodiscard]] EntryField* fieldToCorrect(CodeRefusal refusal) const;

    Book& m_book;
    const Authority m_authority;
    const ActionGate m_gate;
    QWidget* m_panel;
    ListReader* m_reader;
    ControlArray<EntryField> m_fields;
    ControlArray<CommandButton> m_commands;
    ControlArray<PlainList> m_lists;
    RowFilterField* m_filter = nullptr; ///< Of the list of codes.
    QCheckBox* m_income;
    QCheckBox* m_active;
    std::vector<CodeGroup> m_groups;
    qint32 m_group = 0; ///< The current group number, which is stored with the next change of a code.
    std::optional<QString> m_groupName; ///< Its name when it became current; no value if it had none.
    qint32 m_listedGroup = 0; ///< The group whose codes are listed.
    CodeEntry m_settled; ///< What the fields contained when they were last filled or stored.
    std::optional<qint64> m_selected; ///< The row of the last code clicked.
    bool m_offered = false; ///< Whether the selected code may be modified and removed.
};

} // namespace lorvan

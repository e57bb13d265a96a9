#pragma once

#include "codes/code_catalogue.h"
#include "controls/control_array.h"

#include <QWidget>

#include <vector>

class QCheckBox;
class QGroupBox;
class QLayout;

namespace lorvan {

class CommandButton;
class EntryField;
class PlainList;

/// The codes page `Panel1(2)`. It shows codes and groups; their maintenance is not built yet, so its fields and buttons
/// stand there disabled.
class CodesPage : public QWidget {
    Q_OBJECT

public:
    explicit CodesPage(QWidget* parent);

    void fill(const std::vector<MovementCode>& codes, const std::vector<CodeGroup>& groups, bool mayModify);

Q_SIGNALS:
    void commandPressed(int index);

private:
    QGroupBox* entryFrame();
    QLayout* commandRow();
    QLayout* codesColumn();
    QLayout* groupsColumn();
    CommandButton* addCommand(
        int index, const QString& icon, const QString& text, const QString& tip, int captionIndex);
    PlainList* addList(int index, const QString& name, const QString& tip);
    void showGroup(qint32 group);
    void setTabOrders();

    ControlArray<EntryField> m_fields;
    ControlArray<CommandButton> m_commands;
    ControlArray<PlainList> m_lists;
    QCheckBox* m_income;
    QCheckBox* m_active;
    std::vector<MovementCode> m_codes;
};

} // namespace lorvan

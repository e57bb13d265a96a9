#pragma once

#include "codes/cash_analysis_groups.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "platform/files/settings_store.h"

#include <QDialog>

#include <vector>

class QLayout;
class QScrollArea;
class QVBoxLayout;

namespace lorvan {

class CodeBoxField;
class CodeDropDown;
class CommandButton;
class Connection;
class GroupFrame;
class TitleEditor;

/// The screen before a day's cash analysis: titles and codes of the four groups that are not cash. Modal. Its button
/// stores them and hides it; closing it by its frame hides it without storing. Either way, the analysis continues with
/// what is shown.
class AnalyshFRM : public QDialog {
    Q_OBJECT

public:
    /// `main` must outlive the screen; its codes are read when a code is to be chosen for the first time. `day` is the
    /// analysed day as typed. Throws SettingsError if the stored groups cannot be read.
    AnalyshFRM(Connection& main, SettingsStore settings, const QString& day, QWidget* parent = nullptr);

    /// What the screen shows, even after it was hidden. A title that is still being edited counts as changed.
    [[nodiscard]] AnalysisGroups groups() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    QLayout* groupGrid();
    void fillFrame(int group);
    void addBoxRow(int box, QVBoxLayout* column);
    void setTabOrders();

    void showGroups(const AnalysisGroups& groups);
    void setGroupTitle(int group, const QString& title);

    void chooseCode(int box);
    void takeCode(int row);
    void closeCodes();
    void renameGroup(int group);
    void takeTitle(const QString& title);
    void placeOverlays();
    void save();

    Connection& m_main;
    const SettingsStore m_settings;
    const ActionGate m_gate;
    ControlArray<GroupFrame> m_frames;
    ControlArray<CodeBoxField> m_boxes;
    ControlArray<CommandButton> m_choosers;
    QScrollArea* m_area; ///< Scrolls if the screen is lower than the boxes.
    CodeDropDown* m_codes;
    TitleEditor* m_title;
    CommandButton* m_save;
    std::vector<CodeBox> m_available; ///< Empty until a code is to be chosen.
    int m_chosenBox = 0; ///< The box whose code is being chosen.
    int m_renamedGroup = 1; ///< The group whose title is being changed.
};

} // namespace lorvan

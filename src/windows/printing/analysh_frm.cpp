#include "printing/analysh_frm.h"

#include "codes/analysis_codes.h"
#include "controls/command_button.h"
#include "printing/code_box_field.h"
#include "printing/code_drop_down.h"
#include "printing/group_frame.h"
#include "printing/title_editor.h"

#include <QKeyEvent>
#include <QScrollArea>

#include <utility>

namespace lorvan {

AnalyshFRM::AnalyshFRM(Connection& main, SettingsStore settings, const QString& day, QWidget* parent)
    : QDialog(parent)
    , m_main(main)
    , m_settings(std::move(settings))
    , m_gate(this, ActionGate::Opened::InAnAction)
    , m_frames(QStringLiteral("SSFrame1"))
    , m_boxes(QStringLiteral("Text1"))
    , m_choosers(QStringLiteral("Command2"))
    , m_area(new QScrollArea)
    , m_codes(new CodeDropDown)
    , m_title(new TitleEditor)
    , m_save(new CommandButton(QStringLiteral("check"), QStringLiteral("Αποθήκευση και συνέχεια")))
{
    setObjectName(QStringLiteral("AnalyshFRM"));
    setWindowTitle(QStringLiteral("Ανάλυση ταμείου ημέρας: ") + day);
    setModal(true);
    layOut();
    showGroups(storedAnalysisGroups(m_settings));
    connect(m_codes, &CodeDropDown::activated, this, &AnalyshFRM::takeCode);
    connect(m_codes, &CodeDropDown::dismissed, this, &AnalyshFRM::closeCodes);
    connect(m_title, &TitleEditor::finished, this, &AnalyshFRM::takeTitle);
    m_gate.connect(m_save, {}, [this] { save(); });
    m_boxes[0]->setFocus(Qt::OtherFocusReason);
}

// What is shown

void AnalyshFRM::showGroups(const AnalysisGroups& groups)
{
    int group = 1;
    for (const AnalysisGroup& each : groups) {
        int box = firstBoxOf(group);
        for (const CodeBox& code : each.boxes)
            m_boxes[box++]->setBox(code);
        setGroupTitle(group++, each.title);
    }
}

void AnalyshFRM::setGroupTitle(int group, const QString& title)
{
    m_frames[group]->setGroupTitle(title);
    for (int box = firstBoxOf(group); box < firstBoxOf(group + 1); ++box) {
        const QString name = title + QStringLiteral(", ") + captionOfBox(box);
        m_boxes[box]->setAccessibleName(name);
        m_choosers[box]->setAccessibleName(QStringLiteral("Επιλογή: ") + name);
    }
}

AnalysisGroups AnalyshFRM::groups() const
{
    AnalysisGroups groups;
    int number = 1;
    for (AnalysisGroup& group : groups) {
        int box = firstBoxOf(number);
        for (CodeBox& code : group.boxes)
            code = m_boxes[box++]->box();
        const bool isBeingRenamed = m_title->isOpen() && number == m_renamedGroup;
        group.title = isBeingRenamed ? m_title->text() : m_frames[number]->groupTitle();
        ++number;
    }
    return groups;
}

void AnalyshFRM::save()
{
    m_title->finish();
    storeAnalysisGroups(m_settings, groups());
    accept();
}

// Choosing a code

void AnalyshFRM::chooseCode(int box)
{
    if (m_available.empty()) {
        m_available = listCodeBoxes(m_main);
        m_codes->setCodes(m_available);
    }
    m_chosenBox = box;
    placeOverlays();
    m_codes->setAccessibleName(m_boxes[box]->accessibleName());
    m_codes->openAt(m_boxes[box]->box());
}

void AnalyshFRM::takeCode(int row)
{
    m_boxes[m_chosenBox]->setBox(m_available.at(static_cast<std::size_t>(row)));
    closeCodes();
}

void AnalyshFRM::closeCodes()
{
    if (m_codes->hasFocus())
        m_boxes[m_chosenBox]->setFocus(Qt::OtherFocusReason);
    m_codes->hide();
}

// Renaming a group

void AnalyshFRM::renameGroup(int group)
{
    m_title->finish();
    m_renamedGroup = group;
    placeOverlays();
    m_title->setAccessibleName(m_frames[group]->groupTitle());
    m_title->open(m_frames[group]->groupTitle());
}

void AnalyshFRM::takeTitle(const QString& title)
{
    setGroupTitle(m_renamedGroup, title);
    if (m_title->hasFocus())
        m_boxes[firstBoxOf(m_renamedGroup)]->setFocus(Qt::OtherFocusReason);
}

void AnalyshFRM::placeOverlays()
{
    const QWidget* const page = m_area->widget();
    const QWidget* const box = m_boxes[m_chosenBox];
    m_codes->setGeometry(QRect(box->mapTo(page, QPoint()), box->size()));
    const GroupFrame* const frame = m_frames[m_renamedGroup];
    m_title->setGeometry(frame->titleStrip().translated(frame->mapTo(page, QPoint())));
}

// Keys and size

void AnalyshFRM::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F2) {
        for (const auto& [group, frame] : m_frames) {
            if (frame->isAncestorOf(focusWidget()))
                return renameGroup(group);
        }
    }
    if (!event->matches(QKeySequence::Cancel))
        QDialog::keyPressEvent(event);
}

void AnalyshFRM::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    placeOverlays();
}

} // namespace lorvan

#include "printing/analysh_frm.h"

#include "codes/analysis_codes.h"
#include "controls/command_button.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "printing/code_box_field.h"
#include "printing/code_drop_down.h"
#include "printing/group_frame.h"
#include "printing/title_editor.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>

namespace lorvan {
namespace {

constexpr QSize firstSize{700, 410};
constexpr int margin = 16;
constexpr int betweenGroups = 12;
constexpr int chooserWidth = 44;
constexpr int columns = 2;

} // namespace

void AnalyshFRM::layOut()
{
    auto* const outer = new QGroupBox(QStringLiteral("(Τράπεζες ή κωδικοί που ΔΕΝ είναι μετρητά"));
    outer->setObjectName(QStringLiteral("SSFrame1(0)"));
    outer->setLayout(groupGrid());
    m_save->setObjectName(QStringLiteral("Command1"));
    m_save->setLook(CommandButton::Look::Solid);
    m_area->setWidget(outer);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(margin, margin - 4, margin, margin - 2);
    whole->setSpacing(betweenGroups);
    whole->addWidget(m_area, 1);
    whole->addWidget(m_save, 0, Qt::AlignRight);

    m_codes->setObjectName(QStringLiteral("Combo1"));
    m_title->setObjectName(QStringLiteral("Text2"));
    for (QWidget* const overlay : {static_cast<QWidget*>(m_codes), static_cast<QWidget*>(m_title)}) {
        overlay->setParent(outer);
        overlay->hide();
    }
    setTabOrders();
    const QSize beside(2 * margin, 2 * margin + betweenGroups + m_save->sizeHint().height());
    sizeWithin(this, firstSize.expandedTo(outer->sizeHint() + beside)); // in a large font the groups need more
}

QLayout* AnalyshFRM::groupGrid()
{
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(betweenGroups, betweenGroups / 2, betweenGroups, betweenGroups - 2);
    grid->setSpacing(betweenGroups);
    for (int group = 1; group <= analysisGroupCount; ++group) {
        fillFrame(group);
        grid->addWidget(m_frames[group], (group - 1) / columns, (group - 1) % columns);
    }
    return grid;
}

void AnalyshFRM::fillFrame(int group)
{
    auto* const frame = m_frames.add(group, new GroupFrame);
    frame->setToolTip(QStringLiteral("Διπλό κλικ για να αλλάξετε τη περιγραφή της ομάδας"));
    connect(frame, &GroupFrame::renameAsked, this, [this, group] { renameGroup(group); });
    auto* const column = new QVBoxLayout(frame);
    column->setContentsMargins(betweenGroups, betweenGroups - 2, betweenGroups, betweenGroups / 2);
    column->setSpacing(2);
    for (int i = 0; i < boxesOfGroup; ++i)
        addBoxRow(firstBoxOf(group) + i, column);
}

void AnalyshFRM::addBoxRow(int box, QVBoxLayout* column)
{
    auto* const caption = fieldCaption(captionOfBox(box));
    caption->setObjectName(QStringLiteral("Label1(%1)").arg(box));
    auto* const field = m_boxes.add(box, new CodeBoxField);
    field->setToolTip(QStringLiteral("Πατήστε DELγια τη διαγραφή της ομάδας"));
    auto* const chooser = m_choosers.add(box, new CommandButton({}, QStringLiteral(" . . .")));
    chooser->setFixedWidth(chooserWidth);
    m_gate.connect(chooser, {}, [this, box] { chooseCode(box); });
    auto* const row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(field, 1);
    row->addWidget(chooser);
    column->addWidget(caption);
    column->addLayout(row);
    column->addStretch(1);
}

void AnalyshFRM::setTabOrders()
{
    QWidget* last = m_save;
    for (const auto& [box, field] : m_boxes) {
        setTabOrder(last, field);
        setTabOrder(field, m_choosers[box]);
        last = m_choosers[box];
    }
    setTabOrder(last, m_save);
}

} // namespace lorvan

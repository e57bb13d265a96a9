#include "door/entry_dialog.h"

#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "controls/guarded_window.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QShortcut>

namespace lorvan {
namespace {

constexpr int margin = 12;
constexpr int between = 8;

} // namespace

EntryDialog::EntryDialog(const QString& objectName, const QString& title, const QString& doing, QWidget* parent)
    : QDialog(parent)
    , m_gate(
          this, ActionGate::Opened::OnItsOwn, [] {}, [this] { tellUnconfirmed(this); })
    , m_area(new QScrollArea(this))
    , m_do(new CommandButton(QStringLiteral("tick"), doing, this))
    , m_leave(new CommandButton({}, QStringLiteral("Άκυρο"), this))
{
    setObjectName(objectName);
    setWindowTitle(title);
    setModal(true);
    m_do->setObjectName(QStringLiteral("do"));
    m_do->setLook(CommandButton::Look::Solid);
    m_leave->setObjectName(QStringLiteral("leave"));
    m_leave->setLook(CommandButton::Look::Quiet);
    m_gate.connect(m_do, {}, [this] { carryOut(); });
    connect(m_leave, &CommandButton::clicked, this, &EntryDialog::reject);
}

void EntryDialog::setFields(QWidget* fields, QSize firstSize)
{
    m_area->setWidget(fields);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(between);
    buttons->addStretch(1);
    buttons->addWidget(m_do);
    buttons->addWidget(m_leave);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(between);
    rows->addWidget(m_area, 1);
    rows->addLayout(buttons);
    setTabOrder(m_do, m_leave);
    const QSize beside(2 * margin, 2 * margin + between + m_do->sizeHint().height());
    sizeWithin(this, firstSize.expandedTo(fields->sizeHint() + beside)); // in a large font the fields need more
}

void EntryDialog::refuse(const QString& text, QWidget& field)
{
    showMessage(this, QMessageBox::Information, QStringLiteral("Προσοχή"), text);
    m_area->ensureWidgetVisible(&field);
    goBackTo(field);
}

void EntryDialog::reject()
{
    if (!hasTyped()
        || askOkCancel(this, QMessageBox::Question, windowTitle(), QStringLiteral("Να κλείσει το παράθυρο;"),
            QStringLiteral("Ό,τι γράψατε εδώ χάνεται. Δεν έχει γίνει τίποτα ακόμη."), DefaultAnswer::No))
        QDialog::reject();
}

void EntryDialog::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextPrevChild(true);
    else
        QDialog::keyPressEvent(event);
}

void EntryDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reject();
}

EntryField* newEntry(const char* name, const QString& caption)
{
    auto* const field = new EntryField(TypingRule::Any);
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(caption);
    return field;
}

void addEntryRow(QGridLayout* grid, const QString& caption, QWidget* control, QWidget* beside)
{
    const int row = grid->rowCount();
    auto* const label = new ThemedLabel(caption, ColourRole::PageText);
    label->setBuddy(control);
    control->setAccessibleName(caption);
    grid->addWidget(label, row, 0);
    grid->addWidget(control, row, 1, 1, beside ? 1 : 2);
    if (beside)
        grid->addWidget(beside, row, 2);
}

CommandButton* newBrowseButton(const char* name, const QString& tip, EntryField* field)
{
    auto* const button = newCommand(name, QStringLiteral("folder"), {}, tip);
    button->setToolTip(tip + QStringLiteral(" (Ctrl+O)"));
    button->setFocusPolicy(Qt::NoFocus);
    auto* const key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), field, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, button, [button] { button->click(); });
    return button;
}

} // namespace lorvan

#include "cashbook/movement_entry_page.h"
#include "cashbook/undo_notices.h"
#include "codes/codes_page.h"
#include "controls/command_button.h"
#include "controls/guarded_window.h"
#include "controls/main_controls.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "main/kentrikh.h"

#include <QLineEdit>
#include <QShortcut>

namespace lorvan {
namespace {

/// Whether the focused field takes its own typing back, or again.
bool undoTyping(QWidget* field, UndoStep step)
{
    QLineEdit* const line = field ? lineOf(*field) : nullptr;
    const bool isUndo = step == UndoStep::Undo;
    if (!line || !(isUndo ? line->isUndoAvailable() : line->isRedoAvailable()))
        return false;
    if (isUndo)
        line->undo();
    else
        line->redo();
    return true;
}

} // namespace

void Kentrikh::connectUndo()
{
    connect(m_entryPage, &MovementEntryPage::stored, this, &Kentrikh::takeUp);
    connect(m_codesPage, &CodesPage::stored, this, &Kentrikh::takeUp);
    connect(&m_notices, &MainNotices::undoWanted, this, [this] { m_gate.run([this] { undo(UndoStep::Undo); }); });
    const auto add = [this](QKeyCombination keys, UndoStep step) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, step] { undoByKey(step); });
    };
    add(Qt::CTRL | Qt::Key_Z, UndoStep::Undo);
    add(Qt::CTRL | Qt::Key_Y, UndoStep::Redo);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, UndoStep::Redo);
}

void Kentrikh::takeUp(const StoredChange& change)
{
    guarded(this, [&] {
        if (m_undoList.add(change))
            m_notices.tellUndo(undoOffer(change), changeText(change));
    });
}

/// The focused field comes first, then an entry that was released a moment ago, then what is stored.
void Kentrikh::undoByKey(UndoStep step)
{
    if (undoTyping(focusWidget(), step))
        return;
    if (step == UndoStep::Undo && m_tab == tab::cashBook && m_entryPage->hasCleared())
        m_gate.runQuick([this] { m_entryPage->bringBackCleared(); });
    else if (mayUndoByKey(step))
        m_gate.run([this, step] { undo(step); });
}

/// What is being typed on the shown page comes first, and a movement is not changed behind one that is being typed.
bool Kentrikh::mayUndoByKey(UndoStep step) const
{
    const StoredChange* const change = m_undoList.next(step);
    if (!change || m_tab == tab::printing)
        return false;
    const bool concernsEntry = m_tab == tab::cashBook || std::holds_alternative<MovementChange>(*change);
    return (!concernsEntry || m_entryPage->isEntryEmpty()) && (m_tab != tab::codes || m_codesPage->isUntouched());
}

void Kentrikh::undo(UndoStep step)
{
    if (!settle() || refusedByMarker(this))
        return;
    const auto result = m_undoList.take(step);
    if (!result)
        return;
    showUndone(*result);
    const StoredChange* const next = m_undoList.next(UndoStep::Undo);
    if (result->refusal.isEmpty())
        m_notices.tellUndo(
            undoneNotice(*result, step, m_entryPage->shownDay(), next), next ? changeText(*next) : QString());
    else
        showMessage(this, QMessageBox::Information, QStringLiteral("Προσοχή"), undoRefusal(*result, step));
    if (!result->refusal.isEmpty() && !next)
        m_notices.forgetUndo();
}

/// What was refused may have been changed by somebody else.
void Kentrikh::showUndone(const UndoResult& result)
{
    if (!std::holds_alternative<MovementChange>(result.change))
        m_entryPage->refillCodes();
    m_entryPage->lookAgain();
    if (m_tab == tab::codes)
        m_codesPage->lookAgain();
}

} // namespace lorvan

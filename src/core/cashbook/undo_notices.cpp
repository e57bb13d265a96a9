#include "cashbook/undo_notices.h"

#include "platform/date_text.h"

namespace lorvan {
namespace {

const QString keys = QStringLiteral("Ctrl+Z για αναίρεση, όταν δεν γράφετε κάτι· Ctrl+Y για επανάληψη.");

QString otherDay(const UndoResult& result, QDate shown)
{
    if (!result.day || result.day->view.day == shown)
        return {};
    return QStringLiteral(", στις ") + dateText(result.day->view.day);
}

} // namespace

Notice undoOffer(const StoredChange& change)
{
    return {QStringLiteral("Αναίρεση: ") + changeText(change), keys, false};
}

Notice undoneNotice(const UndoResult& result, UndoStep step, QDate shown, const StoredChange* next)
{
    const bool isUndo = step == UndoStep::Undo;
    QString text = (isUndo ? QStringLiteral("Αναιρέθηκε: ") : QStringLiteral("Έγινε ξανά: "))
        + changeText(result.change) + otherDay(result, shown);
    if (isUndo && next)
        text += QStringLiteral("  ·  επόμενη αναίρεση: ") + changeText(*next);
    return {text, keys, false};
}

QString undoRefusal(const UndoResult& result, UndoStep step)
{
    return (step == UndoStep::Undo ? QStringLiteral("Δεν αναιρέθηκε: ") : QStringLiteral("Δεν έγινε ξανά: "))
        + changeText(result.change) + QStringLiteral(".\n") + result.refusal;
}

} // namespace lorvan

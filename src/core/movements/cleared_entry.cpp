#include "movements/cleared_entry.h"

namespace lorvan {

EntryReturn returnOf(const ClearedEntry& entry, const std::optional<Movement>& stored, bool mayChange)
{
    if (!entry.loaded)
        return EntryReturn::Typed;
    if (!stored)
        return EntryReturn::MovementIsGone;
    if (*stored != *entry.loaded)
        return EntryReturn::MovementIsAnother;
    return mayChange ? EntryReturn::Loaded : EntryReturn::DayIsClosed;
}

QString returnRefusalText(EntryReturn outcome)
{
    switch (outcome) {
    case EntryReturn::Typed:
    case EntryReturn::Loaded:
        break;
    case EntryReturn::MovementIsGone:
        return QStringLiteral("Η κίνηση δεν φορτώνεται ξανά: έχει διαγραφεί στο μεταξύ.");
    case EntryReturn::MovementIsAnother:
        return QStringLiteral("Η κίνηση δεν φορτώνεται ξανά: έχει αλλάξει στο μεταξύ.");
    case EntryReturn::DayIsClosed:
        return QStringLiteral("Η κίνηση δεν φορτώνεται ξανά: το ταμείο της ημέρας έχει κλείσει.");
    }
    return {};
}

} // namespace lorvan

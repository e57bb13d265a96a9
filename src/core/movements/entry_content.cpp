#include "movements/entry_content.h"

#include "platform/amount_text.h"

namespace lorvan {

bool EntryContent::Amount::isZero() const
{
    if (text.trimmed().isEmpty())
        return true;
    const AmountReading reading = readAmount(text, Precision::Cents);
    return reading && reading.amount.isZero();
}

bool EntryContent::isEmpty() const
{
    return chooser.trimmed().isEmpty() && description.trimmed().isEmpty() && income.isZero() && expense.isZero();
}

bool isMemorandumLeft(const EntryContent& now, bool untouchedSinceInsertion)
{
    return !now.memorandum.isZero() && (now.isEmpty() || untouchedSinceInsertion);
}

UnsavedEntry unsavedEntry(const EntryContent& now, const std::optional<EntryContent>& loaded)
{
    if (loaded)
        return now == *loaded ? UnsavedEntry::None : UnsavedEntry::Correction;
    return now.isEmpty() ? UnsavedEntry::None : UnsavedEntry::Movement;
}

QString unsavedEntryText(UnsavedEntry unsaved)
{
    switch (unsaved) {
    case UnsavedEntry::None:
        break;
    case UnsavedEntry::Movement:
        return QStringLiteral("Υπάρχει κίνηση που δεν έχει εισαχθεί.");
    case UnsavedEntry::Correction:
        return QStringLiteral("Υπάρχει μεταβολή κίνησης που δεν έχει γίνει.");
    }
    return {};
}

} // namespace lorvan

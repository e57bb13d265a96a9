#include "movements/entry_copy.h"

#include "platform/amount_text.h"

namespace lorvan {

EntryContent copyInto(const EntryContent& entry, const MovementDraft& movement, const MovementCode& code)
{
    const auto contentOf = [](Currency amount) { return EntryContent::Amount{amountOrZeroText(amount), amount}; };
    const Currency amount = movement.income + movement.expense; // one of them is zero
    EntryContent copy = entry;
    copy.chooser = QString::number(code.code) + u' ' + code.description;
    copy.code = code.code;
    copy.incomeCode = copy.incomeOpen = code.income;
    copy.description = movement.description;
    copy.income = contentOf(code.income ? amount : Currency());
    copy.expense = contentOf(code.income ? Currency() : amount);
    copy.cheque = movement.cheque;
    return copy;
}

QString copyRefusalText(CopyRefusal refusal, qint32 code)
{
    switch (refusal) {
    case CopyRefusal::CodeIsInactive:
        return QStringLiteral("Η κίνηση δεν αντιγράφεται: ο κωδικός %1 δεν είναι ενεργός.").arg(code);
    case CopyRefusal::DayIsClosed:
        return QStringLiteral("Η κίνηση δεν αντιγράφεται: το ταμείο της ημέρας έχει κλείσει.");
    case CopyRefusal::MovementIsLoaded:
        return QStringLiteral("Η κίνηση δεν αντιγράφεται σε άλλη ημέρα όσο διορθώνετε μια κίνηση.");
    }
    return {};
}

} // namespace lorvan

#include "csv/import_rows.h"

#include "csv/import_reasons.h"

namespace lorvan {

using Need = CsvColumn::Need;

const std::vector<CsvColumn> groupColumns{{"aa"}, {"sxolia", Need::Optional}, {"perigrafh"}};
const std::vector<CsvColumn> codeColumns{{"aa", Need::Optional}, {"kvdikos"}, {"perigrafh"}, {"omada", Need::Optional},
    {"aa_omadas", Need::Optional}, {"lista", Need::Ignored}, {"esodo"}, {"energos", Need::Optional}};
const std::vector<CsvColumn> movementColumns{{"aa", Need::Ignored}, {"kvdikos"}, {"hmeromhnia"}, {"perigrafh"},
    {"esoda"}, {"ejoda"}, {"aa_omada", Need::Ignored}, {"grammh", Need::Ignored}, {"epitagh", Need::Optional},
    {"L_tajeos", Need::Optional}};
const std::vector<CsvColumn> openingColumns{{"day"}, {"amount"}};
const std::vector<CsvColumn> counterColumns{{"name"}, {"seq"}};

MovementDraft movementIn(const CsvTable& row)
{
    MovementDraft draft;
    draft.code = row.number("kvdikos");
    draft.day = row.date("hmeromhnia");
    draft.description = row.text("perigrafh").value_or(QString());
    draft.income = row.amount("esoda");
    draft.expense = row.amount("ejoda");
    draft.memorandum = row.amount("L_tajeos");
    draft.cheque = row.flag("epitagh", false);
    if (!draft.income.isZero() && !draft.expense.isZero())
        throw import_reasons::incomeAndExpense();
    return draft;
}

} // namespace lorvan

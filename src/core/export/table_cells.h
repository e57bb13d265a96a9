#pragma once

#include "document/report_document.h"
#include "platform/currency.h"

#include <QDate>

#include <map>
#include <vector>

namespace lorvan {

/// A cell of a report as it is stored in a spreadsheet.
struct TableCell {
    enum class Kind { Empty, Text, Whole, Amount, Date, WeekdayDate };

    Kind kind = Kind::Empty;
    QString text; ///< As in the report, without leading and trailing blanks.
    Currency number; ///< The value of a Whole or an Amount.
    QDate date;
};

/// True if the amount has no more than the fifteen digits that a spreadsheet stores of a number; any other must be
/// written as text.
[[nodiscard]] bool fitsSpreadsheet(Currency amount);

/// Decides what each cell of a document is. An amount (1.234,56) or a date is recognised in any column. Digits are a
/// whole number if their column is not left-aligned or holds nothing else, so that a description made of digits remains
/// text. The document must outlive the object.
class TableCells {
public:
    explicit TableCells(const ReportDocument& document);

    [[nodiscard]] std::vector<TableCell> read(const ReportItem& row) const;

private:
    void noteWholeNumbers(const ReportItem& row);

    std::map<const std::vector<ReportColumn>*, std::vector<bool>> m_holdWholeNumbers; ///< By column.
};

} // namespace lorvan

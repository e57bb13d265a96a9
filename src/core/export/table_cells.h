#pragma once

#include "document/report_document.h"
#include "platform/currency.h"

#include <QDate>

#include <map>
#include <vector>

namespace lorvan {

/// A cell of a report as a spreadsheet keeps it.
struct TableCell {
    enum class Kind { Empty, Text, Whole, Amount, Date, WeekdayDate };

    Kind kind = Kind::Empty;
    QString text; ///< As in the report, without blanks around it.
    Currency number; ///< Of a whole number or an amount.
    QDate date;
};

/// A spreadsheet keeps fifteen digits of a number; an amount that has more must stand there as a text.
[[nodiscard]] bool fitsSpreadsheet(Currency amount);

/// Tells what the cells of a document are. Amounts (1.234,56) and dates are that wherever they stand; a whole number is
/// one where its column is not left-aligned or holds nothing else, so that a description of digits stays a text. The
/// document must outlive it.
class TableCells {
public:
    explicit TableCells(const ReportDocument& document);

    [[nodiscard]] std::vector<TableCell> read(const ReportItem& row) const;

private:
    void noteWholeNumbers(const ReportItem& row);

    std::map<const std::vector<ReportColumn>*, std::vector<bool>> m_holdWholeNumbers; ///< By column.
};

} // namespace lorvan

#pragma once

#include "document/report_table.h"
#include "reports/code_sums.h"

#include <functional>
#include <optional>

namespace lorvan {

/// Adds the headings of a report on movements: its title, repeated on every page, and the table's titles.
void addMovementHeadings(
    ReportDocument& document, ReportTable& table, const QString& title, const QString& titles, const QString& emptyRow);

/// Says that there is no movement.
void addNoMovements(ReportDocument& document);

/// Rows of movements in sections, one for each number (a code or a group), with a subtotal after each section and
/// totals after the last. The document and the table must outlive it.
class MovementSections {
public:
    /// Makes the cells of a line of sums, given its label.
    using SumCells = std::function<QStringList(const QString& label, const MovementSums& sums)>;

    /// The columns of the amounts, in ascending order.
    struct Column {
        int number = 0;
        Currency MovementSums::*amount = nullptr;
    };

    MovementSections(ReportDocument& document, ReportTable& table, SumCells sumCells, std::vector<Column> columns);

    /// Moves to the section of the next row, ending the previous one. True if the row is to show the section's name;
    /// never for a first section with the number 0. Pages that carry sums call the section by its name.
    [[nodiscard]] bool enter(qint32 number, const QString& name);

    /// Adds a row to the section. Throws CurrencyOverflow, ReportCancelled.
    void addRow(const CellTexts& cells, const MovementSums& amounts);

    /// Ends the last section and adds the totals; leaves font and border set as for totals.
    MovementSums addTotals();

private:
    void addSubtotal(int border);

    ReportDocument& m_document;
    ReportTable& m_table;
    SumCells m_sumCells;
    std::vector<Column> m_columns;
    std::vector<int> m_columnNumbers;
    std::vector<Currency> m_amounts; ///< Of the last row, in these columns.
    std::optional<qint32> m_section;
    MovementSums m_subtotal;
    MovementSums m_totals;
};

} // namespace lorvan

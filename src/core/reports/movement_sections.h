#pragma once

#include "document/report_table.h"
#include "reports/code_sums.h"

#include <functional>
#include <optional>

namespace lorvan {

/// Puts the headings on a report of movements: its title on every page, and the table's titles.
void addMovementHeadings(
    ReportDocument& document, ReportTable& table, const QString& title, const QString& titles, const QString& emptyRow);

/// Says that there is no movement.
void addNoMovements(ReportDocument& document);

/// Rows of movements in sections, one for each number (a code or a group), with a subtotal behind each section and
/// totals behind the last. Must not outlive document and table.
class MovementSections {
public:
    /// Makes the cells of a line of sums from its label.
    using SumCells = std::function<QStringList(const QString& label, const MovementSums& sums)>;

    MovementSections(ReportDocument& document, ReportTable& table, SumCells sumCells);

    /// Goes to the section of the next row, ending the one before. True when the row is to carry the section's name,
    /// which a first section with the number 0 never does.
    [[nodiscard]] bool enter(qint32 number);

    /// Adds a row to the section. Throws CurrencyOverflow, ReportCancelled.
    void addRow(const CellTexts& cells, const MovementSums& amounts);

    /// Ends the last section, adds the totals, and leaves font and border as they are for totals.
    MovementSums addTotals();

private:
    void addSubtotal(int border);

    ReportDocument& m_document;
    ReportTable& m_table;
    SumCells m_sumCells;
    std::optional<qint32> m_section;
    MovementSums m_subtotal;
    MovementSums m_totals;
};

} // namespace lorvan

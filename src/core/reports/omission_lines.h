#pragma once

#include "reports/code_sums.h"
#include "reports/report_omissions.h"

#include <array>
#include <vector>

namespace lorvan {

class Statement;

/// The columns that every statement for listMovements() returns. A memorandum of NULL is not shown.
[[nodiscard]] std::string omittedColumns(std::string_view count = "1", std::string_view memorandum = "L_tajeos");

/// Day, code, income, expense, memorandum and description, as texts.
using OmittedCells = std::array<QString, 6>;

/// Movements that a report leaves out, collected for an omission.
struct OmittedMovements {
    int lines = 0; ///< The number of rows of the statement.
    int missing = 0; ///< The number of movements that the report lacks.
    MovementSums sums; ///< Of the missing movements.
    std::vector<OmittedCells> rows; ///< The first ReportOmission::mostListed.

    /// "2 κινήσεις (έσοδα 10,00, έξοδα 0)"
    [[nodiscard]] QString summary() const;
};

/// How the count of a row is meant: that many equal movements, of which the report has none, or all but one.
enum class CountOf { Missing, Alike };

/// Runs the statement, which has omittedColumns(), to its end. Throws SqlError, CurrencyOverflow.
[[nodiscard]] OmittedMovements listMovements(Statement& rows, CountOf count = CountOf::Missing);

/// An omission with that text and these movements.
[[nodiscard]] ReportOmission omissionOf(const QString& text, const OmittedMovements& movements);

/// "1 κίνηση", "2 κινήσεις"
[[nodiscard]] QString movementsText(int count);

} // namespace lorvan

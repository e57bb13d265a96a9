#pragma once

#include "reports/code_sums.h"
#include "reports/report_omissions.h"

#include <array>
#include <vector>

namespace lorvan {

class Statement;

/// The columns that every statement behind listMovements() yields. A memorandum of NULL is not shown.
[[nodiscard]] std::string omittedColumns(std::string_view count = "1", std::string_view memorandum = "L_tajeos");

/// Day, code, income, expense, memorandum and description, as texts.
using OmittedCells = std::array<QString, 6>;

/// Movements that a report leaves out, on their way into an omission.
struct OmittedMovements {
    int lines = 0; ///< Rows of the statement.
    int missing = 0; ///< How many movements the report does not have.
    MovementSums sums; ///< Of these.
    std::vector<OmittedCells> rows; ///< The first ReportOmission::mostListed.

    /// "2 κινήσεις (έσοδα 10,00, έξοδα 0)"
    [[nodiscard]] QString summary() const;
};

/// How the count of a row is to be understood: that many alike, of which the report has none, or all but one.
enum class CountOf { Missing, Alike };

/// Runs the statement, with omittedColumns(), to its end. Throws SqlError, CurrencyOverflow.
[[nodiscard]] OmittedMovements listMovements(Statement& rows, CountOf count = CountOf::Missing);

/// The omission with that text and these movements behind it.
[[nodiscard]] ReportOmission omissionOf(const QString& text, const OmittedMovements& movements);

/// "1 κίνηση", "2 κινήσεις"
[[nodiscard]] QString movementsText(int count);

} // namespace lorvan

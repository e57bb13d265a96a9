#pragma once

#include "platform/work.h"

#include <QString>

#include <vector>

namespace lorvan {

class Authority;
class Connection;

/// The files that an import reads.
namespace import_files {
inline constexpr auto groups = "omades.csv";
inline constexpr auto codes = "kvdikoi.csv";
inline constexpr auto movements = "kinhseis.csv";
inline constexpr auto openingDifferences = "opening_difference.csv";
inline constexpr auto counters = "sqlite_sequence.csv";
} // namespace import_files

enum class ClosedDays {
    Refuse, ///< As for a user without the right to change closed days.
    Accept
};

/// What to do with rows that were imported before; the book's table `taken_imports` has their digest.
enum class TakenBefore { Refuse, Accept };

struct ImportChoices {
    ClosedDays closedDays = ClosedDays::Refuse;
    TakenBefore takenBefore = TakenBefore::Refuse;
};

struct BadLine {
    QString file;
    qint64 line = 0; ///< Line 1 has the titles.
    QString reason; ///< In Greek.
};

struct ImportedRows {
    qint64 added = 0;
    qint64 present = 0; ///< Left out because the book already has the same.
};

struct CsvImportOutcome {
    static constexpr std::size_t mostBadLines = 50;

    ImportedRows groups;
    ImportedRows codes;
    ImportedRows openingDifferences;
    qint64 movements = 0;
    qint64 repeatedMovements = 0; ///< How many of these equal a movement that the book already had.
    std::vector<BadLine> badLines; ///< The first `mostBadLines`, in the order of the files.
    qint64 badLineCount = 0; ///< How many there are; if there is any, nothing was stored.
};

/// Imports groups, codes, movements, opening differences and counters from the CSV files in a folder, in one
/// transaction. At least one file of the first three must be there. `book` has the main database open and the auxiliary
/// one attached as `auxiliary`.
///
/// Groups and codes keep their numbers; a number that belongs to something else makes a bad line. Movements are added
/// as if they were typed: within each day in the order of the file, with a code of the book or of the file, and in the
/// group of that code. An opening difference changes the balances from its day on; a second one for the same day is a
/// bad line. If anything was new, a digest of the import is stored in the book. The journal gets a row for each
/// file.
///
/// Throws Refused if there is no file, if one cannot be read, or if all of this was imported before; SqlError; GivenUp
/// if a WorkWatch says so before the commit; and CurrencyOverflow if a balance is out of range. The book is then
/// unchanged.
[[nodiscard]] CsvImportOutcome importCsv(Connection& book, const Authority& authority, const QString& folder,
    ImportChoices choices, const StepProgress& progress = {});

} // namespace lorvan

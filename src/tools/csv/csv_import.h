#pragma once

#include "support/work.h"

#include <QString>

#include <vector>

namespace lorvan {

class Authority;
class Connection;

/// What an import takes and what it leaves, by file.
namespace import_files {
inline constexpr auto groups = "omades.csv";
inline constexpr auto codes = "kvdikoi.csv";
inline constexpr auto movements = "kinhseis.csv";
inline constexpr auto openingDifferences = "opening_difference.csv";
inline constexpr auto counters = "sqlite_sequence.csv";
} // namespace import_files

enum class ClosedDays {
    Refuse, ///< As typed by a user who may not change closed days.
    Accept
};

/// What becomes of rows that were imported once, as the digest in the book's table `taken_imports` tells.
enum class TakenBefore { Refuse, Accept };

struct ImportChoices {
    ClosedDays closedDays = ClosedDays::Refuse;
    TakenBefore takenBefore = TakenBefore::Refuse;
};

struct BadLine {
    QString file;
    qint64 line = 0; ///< From 1, the row of titles.
    QString reason; ///< In Greek.
};

struct ImportedRows {
    qint64 added = 0;
    qint64 present = 0; ///< Left out, since the book holds just the same.
};

struct CsvImportOutcome {
    static constexpr std::size_t mostBadLines = 50;

    ImportedRows groups;
    ImportedRows codes;
    ImportedRows openingDifferences;
    qint64 movements = 0;
    qint64 repeatedMovements = 0; ///< Of these, those that equal one which the book held already.
    std::vector<BadLine> badLines; ///< The first ones, in the order of the files.
    qint64 badLineCount = 0; ///< Unless it is 0, nothing was stored.
};

/// Takes groups, codes and movements from the CSV files of a folder, in one transaction; each file may be missing, but
/// not all three; with them opening differences and counters. `book` has the main database open and the auxiliary one
/// attached.
///
/// Groups and codes keep their numbers; one that is taken by something else is a bad line. Movements are added as if
/// typed, in the order of the file within each day, under any code that the book or the file holds, with the group of
/// that code.
/// An opening difference moves the balances from its day on; a day that has another one already is a bad line.
/// The book remembers what it took, unless that was nothing new; the journal has one row for each file.
/// Throws Refused when no file is there or one cannot be read, or when all of it was taken before, SqlError, and
/// CurrencyOverflow when a balance leaves its range; the book is then as it was.
[[nodiscard]] CsvImportOutcome importCsv(Connection& book, const Authority& authority, const QString& folder,
    ImportChoices choices, const StepProgress& progress = {});

} // namespace lorvan

#pragma once

#include <QStringList>

namespace lorvan {

struct CsvImportOutcome;

/// What was added, a line for each kind of record: "Κινήσεις: προστέθηκαν 120".
[[nodiscard]] QStringList importedLines(const CsvImportOutcome& outcome);

/// The first bad lines, at most `most` of those that are kept: "kinhseis.csv:7: …", and how many others there are.
[[nodiscard]] QStringList badLineTexts(const CsvImportOutcome& outcome, std::size_t most);

} // namespace lorvan

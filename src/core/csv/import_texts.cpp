#include "csv/import_texts.h"

#include "csv/csv_import.h"

#include <algorithm>

namespace lorvan {
namespace {

void addRows(QStringList& lines, const QString& what, const ImportedRows& rows)
{
    if (rows.added + rows.present > 0)
        lines += QStringLiteral("%1: προστέθηκαν %2, υπήρχαν ήδη ίδιες εγγραφές %3")
                     .arg(what)
                     .arg(rows.added)
                     .arg(rows.present);
}

} // namespace

QStringList importedLines(const CsvImportOutcome& outcome)
{
    QStringList lines;
    addRows(lines, QStringLiteral("Ομάδες"), outcome.groups);
    addRows(lines, QStringLiteral("Κωδικοί"), outcome.codes);
    addRows(lines, QStringLiteral("Υπόλοιπα ανοίγματος"), outcome.openingDifferences);
    lines += QStringLiteral("Κινήσεις: προστέθηκαν %1").arg(outcome.movements);
    if (outcome.repeatedMovements > 0)
        lines += QStringLiteral("Προσοχή: το βιβλίο είχε ήδη ίδιες κινήσεις με %1 από αυτές.")
                     .arg(outcome.repeatedMovements);
    return lines;
}

QStringList badLineTexts(const CsvImportOutcome& outcome, std::size_t most)
{
    QStringList lines;
    const std::size_t shown = std::min(most, outcome.badLines.size());
    for (std::size_t each = 0; each < shown; ++each) {
        const BadLine& bad = outcome.badLines[each];
        lines += QStringLiteral("%1:%2: %3").arg(bad.file).arg(bad.line).arg(bad.reason);
    }
    if (const qint64 others = outcome.badLineCount - static_cast<qint64>(shown); others > 0)
        lines += QStringLiteral("… και άλλες %1").arg(others);
    return lines;
}

} // namespace lorvan

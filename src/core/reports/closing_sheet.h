#pragma once

#include "document/report_document.h"
#include "document/report_progress.h"

#include <QDate>

namespace lorvan {

class BookFiles;
class Connection;
class KeyRing;

/// The sheet that is signed when a day was closed: carried balance, sums of its codes, closing balance, the cash that
/// was counted, the last seal, lines for signatures. The balances are those that were sealed; if an earlier day or the
/// day itself was changed afterwards, the sheet says so. `book` has both databases; `heading` is the book's name. One
/// read transaction. Throws SqlError, CurrencyOverflow.
[[nodiscard]] ReportDocument closingSheet(Connection& book, QDate day, const QString& heading);

/// The same on a connection of its own, so that it may run in any thread. Throws ReportCancelled as well.
[[nodiscard]] ReportDocument buildClosingSheet(
    QDate day, const QString& heading, const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

/// The suggested name of its file, without extension.
[[nodiscard]] QString closingSheetFileName(QDate day);

} // namespace lorvan

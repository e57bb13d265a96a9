#pragma once

#include "document/report_document.h"
#include "platform/work.h"

#include <QDate>
#include <QDateTime>

#include <functional>
#include <vector>

namespace lorvan {

class BookFiles;
class KeyRing;

/// Documents as one PDF, and the page on which each begins, from 1.
struct BoundDocuments {
    QByteArray pdf;
    std::vector<int> firstPages;
};

/// Lays out documents one after the other, each from a new page on; called in the thread of the package.
using DocumentBinding =
    std::function<BoundDocuments(const std::vector<ReportDocument>& documents, const QString& title)>;

struct MonthRequest {
    QDate month; ///< Its first day.
    QString heading; ///< The book's name.
    QString path; ///< Absolute; a file that is there is replaced.
    QDateTime now;
};

/// Writes what an accountant needs of a month into one ZIP file: the reports of its days, its movements, its sums by
/// code, its seals, all codes and groups, and a page that lists them. Everything comes from one state of the book,
/// which is copied beside the file for the time. The names are described in docs/data-files.md; importCsv() takes the
/// groups, codes and movements.
///
/// The file gets its name at the end (see replaceFile()); until then a StopCheck may end the work, which leaves nothing
/// behind. `keys` holds the keys of both files. `progress` must not throw. Throws Refused, also for a month without
/// movements or if the file cannot be written; SqlError, CurrencyOverflow, GivenUp, and what `bind` throws.
void writeMonthPackage(const MonthRequest& request, const BookFiles& book, KeyRing& keys, const DocumentBinding& bind,
    const StepProgress& progress);

} // namespace lorvan

#pragma once

#include "monthly/month_content.h"

#include <QDateTime>

namespace lorvan {

/// A file of the package, as the index page lists it.
struct MonthFile {
    QString name;
    QString about; ///< In Greek.
};

struct MonthIndex {
    QString heading; ///< The book's name.
    QDateTime made; ///< Local time.
    std::vector<MonthFile> files;
    QString dayFile; ///< The PDF with the days.
    std::vector<int> firstPages; ///< The page in it on which each day of the content begins, from 1; may be empty.
};

/// The package's first page, an HTML file that needs no other: what it holds, the month's sums and balances, its days
/// with their codes. Typed texts in it are escaped.
[[nodiscard]] QByteArray monthIndexPage(const MonthContent& content, const MonthIndex& index);

} // namespace lorvan

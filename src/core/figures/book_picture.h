#pragma once

#include "document/chart.h"
#include "document/report_document.h"
#include "document/report_progress.h"
#include "figures/cash_figures.h"

#include <functional>

namespace lorvan {

class BookFiles;
class Connection;
class KeyRing;

/// What a picture of the book shows.
enum class PictureSubject {
    Cash, ///< The balance as a line, income and expense as bars.
    Groups, ///< Income and expense of each group of codes, through the group that a code has now.
    Codes, ///< Income and expense of the largest codes. Like the reports, both leave out codes in no catalogue.
};

struct PictureRequest {
    PictureSubject subject = PictureSubject::Cash;
    FigureSpan span;
    bool comparesYears = false; ///< With the year before; not for spans of several years.

    friend bool operator==(const PictureRequest&, const PictureRequest&) = default;
};

/// A chart and the same figures as a table.
struct BookPicture {
    QString title;
    QString remark; ///< How to read it; may be empty.
    Chart chart;
    QStringList columns;
    std::vector<QStringList> rows; ///< The first column is a text, the others are amounts or empty.
    QStringList sums; ///< Of the columns; empty where there is nothing to add up.
    std::vector<QDate> days; ///< The day on which each row's step begins; none for groups and codes.
    std::vector<RowSubject> subjects; ///< The code or the single day that each row stands for; empty if neither.
};

/// Reads the cash days or, for groups and codes, an index of the movements, in one transaction. Throws SqlError,
/// CurrencyOverflow.
[[nodiscard]] BookPicture readBookPicture(Connection& main, const PictureRequest& request);

/// The picture on paper: the chart above its table. `heading` is the book's name.
[[nodiscard]] ReportDocument pictureDocument(const BookPicture& picture, const QString& heading);

/// The same on a connection of its own, so that it may run in any thread. Throws ReportCancelled as well.
[[nodiscard]] ReportDocument buildPictureDocument(const PictureRequest& request, const QString& heading,
    const BookFiles& files, KeyRing& keys, const ReportProgress& progress);

} // namespace lorvan

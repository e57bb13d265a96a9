#pragma once

#include "document/report_document.h"
#include "monthly/month_content.h"

#include <vector>

namespace lorvan {

class Connection;

/// The day's cash report of each day of the month. Throws SqlError, CurrencyOverflow.
[[nodiscard]] std::vector<ReportDocument> dayReports(
    Connection& main, const MonthContent& content, const QString& heading);

/// The month's sums by code.
[[nodiscard]] ReportDocument codeSumsReport(const MonthContent& content, const QString& heading);

/// The month's seals as a CSV file with Greek titles, see TableFormat::Csv; the times are local.
[[nodiscard]] QByteArray sealsTable(const MonthContent& content);

} // namespace lorvan

#include "document/report_period.h"

#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(UsualPeriods, atTheEdgesOfMonthsQuartersAndYears)
{
    const struct {
        QDate today;
        const char* periods; ///< Today, this month, last month, this quarter, this year, last year.
    } cases[] = {
        {QDate(2024, 3, 31), "0331-0331 0301-0331 0201-0229 0101-0331 0101-0331 230101-231231"},
        {QDate(2024, 1, 1), "0101-0101 0101-0101 231201-231231 0101-0101 0101-0101 230101-231231"},
        {QDate(2024, 12, 31), "1231-1231 1201-1231 1101-1130 1001-1231 0101-1231 230101-231231"},
    };
    for (const auto& each : cases) {
        QStringList periods;
        for (const NamedPeriod& period : usualPeriods(each.today)) {
            const QString form = period.start.year() == 2024 ? QStringLiteral("MMdd") : QStringLiteral("yyMMdd");
            periods += period.start.toString(form) + u'-' + period.end.toString(form);
        }
        EXPECT_EQ(periods.join(u' '), QString::fromUtf8(each.periods));
    }
}

} // namespace lorvan::test

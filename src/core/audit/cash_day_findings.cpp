#include "audit/cash_day_findings.h"

#include "movements/journalled_opening.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <utility>

namespace lorvan {
namespace {

bool isAmount(const Statement& row, int column)
{
    const auto type = row.storedType(column);
    return type == Statement::StoredType::Integer || type == Statement::StoredType::Null;
}

void addDay(BookFindings& findings, const AuditedDay& day)
{
    const auto add = [&](FindingKind kind, std::int64_t key, bool isNoAmount = false) {
        Finding finding{kind};
        finding.key = key;
        finding.day = day.day;
        finding.rows = static_cast<std::int64_t>(day.repeatedKeys.size()) + 1;
        finding.stored = day.row ? day.row->figures : CashDayFigures{};
        finding.isNoAmount = isNoAmount;
        finding.expected = day.expected;
        findings.add(std::move(finding));
    };
    if (!day.row) {
        add(FindingKind::MissingDay, 0);
        return;
    }
    if (!day.repeatedKeys.empty())
        add(FindingKind::RepeatedDay, day.row->key);
    if (day.sumsWrong)
        add(FindingKind::DaySums, day.row->key, !day.row->sumsAreAmounts);
    if (day.balanceWrong)
        add(FindingKind::DayBalance, day.row->key, !day.row->balanceIsAmount);
}

void addOpening(BookFindings& findings, const CashDayAudit& days)
{
    Currency sum;
    for (const auto& [day, difference] : days.differences) {
        if (difference.isZero())
            continue;
        Finding finding{days.differencesAreKept ? FindingKind::OpeningBalance : FindingKind::OpeningNotKept};
        finding.day = day;
        finding.expected.closingBalance = sum += difference;
        findings.add(std::move(finding));
    }
}

} // namespace

std::vector<CashDayRow> readCashDays(Connection& book, BookFindings& findings)
{
    std::vector<CashDayRow> days;
    auto rows = book.prepare("SELECT aa, hmeromhnia, esoda, ejoda, ypoloipo FROM tameio NOT INDEXED");
    while (rows.step()) {
        const bool isNumber = rows.storedType(1) == Statement::StoredType::Integer;
        const bool sumsAreAmounts = isAmount(rows, 2) && isAmount(rows, 3);
        const bool balanceIsAmount = isAmount(rows, 4);
        const CashDayRow day{rows.integer(0), rows.integer(1), {rows.currency(2), rows.currency(3), rows.currency(4)},
            sumsAreAmounts, balanceIsAmount};
        if (isNumber)
            days.push_back(day);
        if (isNumber && dateFromStored(day.day).isValid())
            continue;
        Finding finding{FindingKind::DayWithoutDate};
        finding.key = day.key;
        finding.day = day.day;
        finding.stored = day.figures;
        findings.add(std::move(finding));
    }
    return days;
}

Opening isOpeningKnown(Connection& book)
{
    const auto told = journalledOpening(book);
    return told && told->empty() ? Opening::Known : Opening::Guessed;
}

BookFindings findingsOf(const CashDayAudit& audit)
{
    BookFindings findings;
    for (const AuditedDay& day : audit.days)
        addDay(findings, day);
    addOpening(findings, audit);
    return findings;
}

} // namespace lorvan

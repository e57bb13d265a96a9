#include "proof/carry_audit.h"

#include "movements/journalled_opening.h"
#include "platform/date_text.h"
#include "proof/count_audit.h"
#include "proof/seal_chain.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

namespace lorvan {
namespace {

constexpr std::size_t places = 200'000; // days; those outside count as the first or the last
constexpr std::int64_t allDays = std::numeric_limits<std::int64_t>::min(); // may have moved
constexpr std::uint64_t minus = ~std::uint64_t(0);

QJsonObject objectIn(const std::optional<QString>& json)
{
    return QJsonDocument::fromJson(json.value_or(QString()).toUtf8()).object();
}

std::size_t placeOf(std::int64_t day)
{
    static const qint64 first = QDate(1800, 1, 1).toJulianDay();
    const qint64 place = dateFromStored(day).toJulianDay() - first + 1;
    return static_cast<std::size_t>(std::clamp<qint64>(place, 1, places - 1));
}

std::uint64_t wrapped(std::int64_t amount)
{
    return static_cast<std::uint64_t>(amount);
}

/// The whole number behind a key of a compact JSON object: the only place where the key stands unescaped in quotes.
std::optional<std::int64_t> numberIn(const QString& json, QLatin1String key)
{
    const qsizetype at = json.indexOf(key);
    if (at < 0)
        return std::nullopt;
    qsizetype end = at + key.size();
    while (end < json.size() && (json[end].isDigit() || json[end] == u'-'))
        ++end;
    bool isNumber = false;
    const qint64 number = QStringView(json).mid(at + key.size(), end - at - key.size()).toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

} // namespace

CarriedBalances::CarriedBalances(std::vector<CashDayRow> rows, OpeningDifferences differences)
    : m_rows(std::move(rows))
    , m_differences(std::move(differences))
{
    std::sort(m_rows.begin(), m_rows.end(),
        [](const CashDayRow& a, const CashDayRow& b) { return std::pair(a.day, a.key) < std::pair(b.day, b.key); });
}

std::optional<CarriedBalances::Carried> CarriedBalances::into(std::int64_t day) const
{
    const auto next = std::lower_bound(
        m_rows.begin(), m_rows.end(), day, [](const CashDayRow& row, std::int64_t each) { return row.day < each; });
    Carried carried;
    if (next != m_rows.begin())
        carried = {std::prev(next)->day, std::prev(next)->figures.closingBalance};
    try {
        for (auto each = m_differences.upper_bound(carried.from); each != m_differences.upper_bound(day); ++each)
            carried.balance += each->second;
    } catch (const CurrencyOverflow&) {
        return std::nullopt;
    }
    return carried;
}

CarryAudit::CarryAudit(const std::vector<DaySeal>& seals)
{
    for (const auto& [day, seal] : lastSeals(seals))
        m_days[seal->journal].push_back(day);
    if (!seals.empty())
        m_sums.resize(places);
}

void CarryAudit::take(const JournalRow& row)
{
    if (m_days.empty())
        return;
    if (!m_sealings.empty()) {
        if (row.subject.startsWith(QLatin1String("movement/")))
            takeMovement(row);
        else if (row.subject.startsWith(QLatin1String("day/")))
            takeOfDay(row);
        else if (row.subject == QLatin1String("book"))
            takeOfBook(row);
    }
    if (const auto sealed = m_days.find(row.hash); sealed != m_days.end()) {
        for (const std::int64_t day : sealed->second)
            m_sealings[day] = {row.id, sumUpTo(placeOf(day))};
    }
}

void CarryAudit::takeMovement(const JournalRow& row)
{
    static const QString accept = journalWord(JournalAction::Accept);
    static const QString found = journalWord(JournalAction::Found);
    if (row.action == found) // what moved with it was not moved by a change
        return;
    if (row.action == accept || !takeState(row.before.value_or(QString()), minus)
        || !takeState(row.after.value_or(QString()), 1))
        m_unknown.push_back({row.id, allDays});
}

/// Moves what is carried into all days after the movement's. False if the state does not tell all.
bool CarryAudit::takeState(const QString& state, Amount sign)
{
    if (state.isEmpty())
        return true;
    const auto day = numberIn(state, QLatin1String("\"hmeromhnia\":"));
    const auto income = numberIn(state, QLatin1String("\"esoda\":"));
    const auto expense = numberIn(state, QLatin1String("\"ejoda\":"));
    if (!day || !income || !expense)
        return false;
    add(placeOf(*day) + 1, sign * (wrapped(*income) - wrapped(*expense)));
    return true;
}

void CarryAudit::takeOfDay(const JournalRow& row)
{
    static const QString correct = journalWord(JournalAction::Correct);
    static const QString accept = journalWord(JournalAction::Accept);
    if (!row.day)
        return;
    if (row.action == correct)
        m_corrected[*row.day] = row.id;
    if (row.action != accept)
        return;
    const QJsonObject state = objectIn(row.after);
    if (const QJsonValue moved = state[QLatin1String(acceptedCarry)]; !moved.isUndefined())
        add(placeOf(*row.day), wrapped(moved.toInteger()));
    else if (!state.contains(QLatin1String(acceptedCount)))
        m_unknown.push_back({row.id, *row.day});
}

void CarryAudit::takeOfBook(const JournalRow& row)
{
    const auto action = journalAction(row.action);
    if (action == JournalAction::Clear) {
        m_sealings.clear();
    } else if (action == JournalAction::Opening) {
        takeOpening(row.before, minus);
        takeOpening(row.after, 1);
    } else if (action == JournalAction::Import) {
        takeImport(row);
    } else if (action == JournalAction::Repair || action == JournalAction::Accept) {
        m_unknown.push_back({row.id, allDays});
    }
}

/// Earlier releases told neither the first day nor the differences.
void CarryAudit::takeImport(const JournalRow& row)
{
    const QJsonObject state = objectIn(row.after);
    const QString file = state[QStringLiteral("file")].toString();
    if (file.startsWith(QLatin1String("omades")) || file.startsWith(QLatin1String("kvdikoi")))
        return;
    if (file.startsWith(QLatin1String("opening_")) && !differencesIn(state).empty()) {
        takeOpening(row.before, minus);
        takeOpening(row.after, 1);
    } else {
        m_unknown.push_back({row.id, state[QStringLiteral("from")].toInteger(allDays)});
    }
}

void CarryAudit::takeOpening(const std::optional<QString>& state, Amount sign)
{
    for (const auto& [day, amount] : differencesIn(objectIn(state)))
        add(placeOf(day), sign * wrapped(amount.tenThousandths()));
}

Currency CarryAudit::unexplained(const DaySeal& seal, const CarriedBalances::Carried& now) const
{
    const auto sealing = m_sealings.find(seal.day);
    if (sealing == m_sealings.end() || !isWhole(seal))
        return {};
    const auto& [row, before] = sealing->second;
    const auto corrected = m_corrected.find(now.from);
    const bool isUnknown = std::any_of(m_unknown.begin(), m_unknown.end(),
        [&, id = row](const Unknown& each) { return each.row > id && each.day < seal.day; });
    if (isUnknown || (corrected != m_corrected.end() && corrected->second > row))
        return {};
    const Amount moved = wrapped(now.balance.tenThousandths()) - wrapped(seal.carried.tenThousandths());
    return Currency::fromTenThousandths(static_cast<std::int64_t>(moved - (sumUpTo(placeOf(seal.day)) - before)));
}

void CarryAudit::add(std::size_t place, Amount amount)
{
    for (; place < m_sums.size(); place += place & (~place + 1))
        m_sums[place] += amount;
}

CarryAudit::Amount CarryAudit::sumUpTo(std::size_t place) const
{
    Amount sum = 0;
    for (; place > 0; place -= place & (~place + 1))
        sum += m_sums[place];
    return sum;
}

} // namespace lorvan

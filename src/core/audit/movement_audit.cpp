#include "audit/movement_audit.h"

#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

constexpr std::int64_t rowsBetweenProgress = 4096;

enum Column { Key, Code, Day, Income, Expense, Group, Cheque, Memorandum };
constexpr auto allMovements = "SELECT aa, kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos"
                              " FROM kinhseis NOT INDEXED";
constexpr std::array amountColumns{Income, Expense, Memorandum};

/// A code's properties, and the movements that use its number.
struct CodeUse {
    bool exists = false;
    bool hasOneGroup = true; ///< False when several rows of the number name different groups.
    std::int64_t group = 0;
    std::int64_t rows = 0;
    std::int64_t ofOtherGroup = 0;
};

struct DayEntry {
    DaySums sums;
    bool isDate = false;
};

std::unordered_map<std::int64_t, CodeUse> knownCodes(Connection& book)
{
    std::unordered_map<std::int64_t, CodeUse> codes;
    auto rows = book.prepare("SELECT kvdikos, aa_omadas FROM kvdikoi ORDER BY aa");
    while (rows.step()) {
        CodeUse& code = codes[rows.integer(0)];
        code.hasOneGroup = !code.exists || code.group == rows.integer(1);
        code.group = rows.integer(1);
        code.exists = true;
    }
    return codes;
}

/// A look-up that is fast if the same key is asked for repeatedly, as with days.
template <typename Value> class LastUsed {
public:
    explicit LastUsed(std::unordered_map<std::int64_t, Value>& values)
        : m_values(values)
    {
    }

    /// The value, and whether it is new.
    std::pair<Value&, bool> at(std::int64_t key)
    {
        bool isNew = false;
        if (!m_last || key != m_key) {
            const auto [entry, inserted] = m_values.try_emplace(key);
            m_last = &entry->second; // an unordered map does not move its values
            m_key = key;
            isNew = inserted;
        }
        return {*m_last, isNew};
    }

private:
    std::unordered_map<std::int64_t, Value>& m_values;
    Value* m_last = nullptr;
    std::int64_t m_key = 0;
};

class Pass {
public:
    explicit Pass(Connection& book)
        : m_codes(knownCodes(book))
        , m_dayOf(m_days)
        , m_codeOf(m_codes)
    {
    }

    void take(const Statement& row)
    {
        checkAmounts(row);
        const Currency income = row.currency(Income);
        const Currency expense = row.currency(Expense);
        if (!income.isZero() && !expense.isZero())
            add(FindingKind::MovementBothSides, row);
        addUp(row, income, expense);
        noteCode(row);
    }

    MovementAudit finish()
    {
        for (const auto& [date, entry] : m_days)
            m_audit.sumsByDay.emplace(date, entry.sums);
        reportCodes();
        return std::move(m_audit);
    }

private:
    void add(FindingKind kind, const Statement& row)
    {
        Finding finding{kind};
        finding.key = row.integer(Key);
        finding.day = row.integer(Day);
        finding.stored = {row.currency(Income), row.currency(Expense), {}};
        m_audit.findings.add(std::move(finding));
    }

    void checkAmounts(const Statement& row)
    {
        bool isNull = false;
        bool isOther = false;
        for (const Column column : amountColumns) {
            const auto type = row.storedType(column);
            isNull = isNull || type == Statement::StoredType::Null;
            isOther = isOther || (type != Statement::StoredType::Null && type != Statement::StoredType::Integer);
        }
        if (isOther)
            add(FindingKind::MovementAmount, row);
        else if (isNull)
            add(FindingKind::MovementNullAmount, row);
    }

    void addUp(const Statement& row, Currency income, Currency expense)
    {
        MovementTotals& totals = m_audit.totals;
        ++totals.rows;
        totals.cheques += row.boolean(Cheque) ? 1 : 0;
        DayEntry* const day = dayOf(row);
        if (!day || !day->isDate)
            add(FindingKind::MovementWithoutDate, row);
        try {
            totals.income += income;
            totals.expense += expense;
            totals.memorandum += row.currency(Memorandum);
            if (day) {
                day->sums.income += income;
                day->sums.expense += expense;
            }
        } catch (const CurrencyOverflow&) {
            m_audit.sumTooLarge = true;
        }
    }

    DayEntry* dayOf(const Statement& row)
    {
        if (row.storedType(Day) != Statement::StoredType::Integer)
            return nullptr;
        const auto [entry, isNew] = m_dayOf.at(row.integer(Day));
        if (isNew)
            entry.isDate = row.date(Day).isValid();
        return &entry;
    }

    void noteCode(const Statement& row)
    {
        CodeUse& code = m_codeOf.at(row.integer(Code)).first;
        ++code.rows;
        code.ofOtherGroup += code.exists && code.hasOneGroup && row.integer(Group) != code.group ? 1 : 0;
    }

    void reportCodes()
    {
        std::vector<std::int64_t> numbers;
        for (const auto& [number, use] : m_codes)
            numbers.push_back(number);
        std::sort(numbers.begin(), numbers.end());
        for (const std::int64_t number : numbers) {
            const CodeUse& use = m_codes[number];
            Finding finding{use.exists ? FindingKind::MovementGroup : FindingKind::MovementUnknownCode};
            finding.key = number;
            finding.rows = use.exists ? use.ofOtherGroup : use.rows;
            if (finding.rows > 0)
                m_audit.findings.add(std::move(finding));
        }
    }

    MovementAudit m_audit;
    std::unordered_map<std::int64_t, DayEntry> m_days;
    std::unordered_map<std::int64_t, CodeUse> m_codes;
    LastUsed<DayEntry> m_dayOf;
    LastUsed<CodeUse> m_codeOf;
};

std::int64_t greatestKey(Connection& book)
{
    auto row = book.prepare("SELECT max(aa) FROM kinhseis");
    return row.step() ? row.integer(0) : 0;
}

} // namespace

MovementAudit auditMovements(Connection& book, const CheckProgress& progress)
{
    const std::int64_t whole = greatestKey(book);
    Pass pass(book);
    auto rows = book.prepare(allMovements);
    for (std::int64_t done = 0; rows.step(); ++done) {
        pass.take(rows);
        if (done % rowsBetweenProgress == 0)
            progress(done, whole);
    }
    return pass.finish();
}

} // namespace lorvan

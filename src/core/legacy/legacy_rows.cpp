#include "legacy/legacy_rows.h"

#include "jet/jet_table.h"
#include "jet/jet_value.h"
#include "legacy/legacy_amount.h"
#include "platform/date_text.h"

#include <algorithm>
#include <unordered_set>

namespace lorvan {
namespace {

/// Null if the column is missing but may be.
const JetColumn* columnFor(const LegacyColumn& wanted, const JetDefinition& definition)
{
    const JetColumn* found = nullptr;
    if (wanted.place && *wanted.place < definition.columns.size())
        found = &definition.columns[*wanted.place];
    else if (!wanted.place)
        found = definition.columnNamed(wanted.name);
    if (!found && wanted.form == LegacyForm::Counter) {
        const auto counter = std::find_if(definition.columns.begin(), definition.columns.end(),
            [](const JetColumn& column) { return column.isCounter; });
        found = counter == definition.columns.end() ? nullptr : &*counter;
    }
    if (!found && !wanted.mayBeMissing)
        throw JetError(QStringLiteral("η στήλη λείπει από τον πίνακα"));
    return found;
}

JetError otherKind(const JetColumn& column)
{
    return JetError(QStringLiteral("η στήλη έχει τιμές του είδους %1").arg(static_cast<int>(column.kind)));
}

template <typename Work> decltype(auto) at(const LegacyColumn& column, const Work& work)
{
    return locating({{}, {}, {}, {}, column.name}, work);
}

/// Reads the rows of one table into cells.
class RowsReader {
public:
    RowsReader(const JetFile& file, const JetDefinition& definition, const LegacyTable& table)
        : m_file(file)
        , m_definition(definition)
        , m_result{&table, {}, {}}
    {
        for (const LegacyColumn& column : table.columns) {
            m_columns.push_back(at(column, [&] { return columnFor(column, definition); }));
            if (!m_columns.back())
                m_result.missingColumns += column.name;
        }
    }

    LegacyRows read(JetDamage& damage)
    {
        const QString& name = m_result.table->name;
        readRows(m_file, m_definition, name, damage, [this](const JetRow& row) { take(row); });
        if (hasCounter()) {
            std::stable_sort(
                m_result.rows.begin(), m_result.rows.end(), [](const LegacyRow& left, const LegacyRow& right) {
                    return std::get<std::int64_t>(left.front()) < std::get<std::int64_t>(right.front());
                });
        }
        return std::move(m_result);
    }

private:
    void take(const JetRow& row)
    {
        const auto& columns = m_result.table->columns;
        m_ofRow = {};
        LegacyRow cells;
        cells.reserve(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            cells.push_back(at(columns[i], [&] { return cell(columns[i], m_columns[i], row); }));
        at(columns.front(), [&] { checkCounter(cells.front()); });
        m_result.rows.push_back(std::move(cells));
        m_result.finerAmounts += m_ofRow.finerAmounts;
        m_result.droppedTimes += m_ofRow.droppedTimes;
    }

    void checkCounter(const LegacyCell& cell)
    {
        if (!hasCounter())
            return;
        const std::int64_t number = std::get<std::int64_t>(cell);
        if (!m_counters.insert(number).second)
            throw JetError(QStringLiteral("υπάρχει και άλλη γραμμή με τον αριθμό %1").arg(number));
    }

    [[nodiscard]] bool hasCounter() const
    {
        return m_result.table->columns.front().form == LegacyForm::Counter && m_columns.front();
    }

    LegacyCell cell(const LegacyColumn& wanted, const JetColumn* column, const JetRow& row)
    {
        if (!column)
            return wanted.form == LegacyForm::Amount ? LegacyCell(std::int64_t(0)) : LegacyCell();
        const JetValue value = valueOf(m_file, row, *column);
        switch (wanted.form) {
        case LegacyForm::Counter:
            return counter(value, *column);
        case LegacyForm::Number:
            return number(value, *column);
        case LegacyForm::Date:
            return date(value, *column);
        case LegacyForm::Amount:
            return amount(value, *column);
        case LegacyForm::Boolean:
            return boolean(value, *column);
        case LegacyForm::Text:
            return text(value, *column);
        }
        return {};
    }

    static LegacyCell counter(const JetValue& value, const JetColumn& column)
    {
        LegacyCell found = number(value, column);
        if (std::holds_alternative<std::monostate>(found))
            throw JetError(QStringLiteral("η γραμμή δεν έχει αριθμό"));
        return found;
    }

    static LegacyCell number(const JetValue& value, const JetColumn& column)
    {
        if (std::holds_alternative<std::monostate>(value))
            return {};
        if (const auto* whole = std::get_if<std::int32_t>(&value))
            return std::int64_t(*whole);
        throw otherKind(column);
    }

    LegacyCell date(const JetValue& value, const JetColumn& column)
    {
        if (std::holds_alternative<std::monostate>(value))
            return {};
        const auto* const time = std::get_if<QDateTime>(&value);
        if (!time)
            throw otherKind(column);
        m_ofRow.droppedTimes += time->time() != QTime(0, 0);
        return std::int64_t(storedDate(time->date()));
    }

    LegacyCell amount(const JetValue& value, const JetColumn& column)
    {
        if (std::holds_alternative<std::monostate>(value))
            return std::int64_t(0);
        if (const auto* money = std::get_if<JetMoney>(&value))
            return money->tenThousandths;
        if (const auto* whole = std::get_if<std::int32_t>(&value))
            return *whole * Currency::unitsPerEuro;
        if (const auto* single = std::get_if<float>(&value))
            return counted(legacyAmount(*single));
        if (const auto* twofold = std::get_if<double>(&value))
            return counted(legacyAmount(*twofold));
        throw otherKind(column);
    }

    std::int64_t counted(const LegacyAmount& read)
    {
        m_ofRow.finerAmounts += !read.isWholeCents;
        return read.amount.tenThousandths();
    }

    static LegacyCell boolean(const JetValue& value, const JetColumn& column)
    {
        if (const auto* flag = std::get_if<bool>(&value))
            return std::int64_t(*flag ? -1 : 0);
        const LegacyCell whole = number(value, column);
        const auto* const found = std::get_if<std::int64_t>(&whole);
        return std::int64_t(found && *found != 0 ? -1 : 0);
    }

    /// A number becomes its digits: one of the columns is not used and may contain anything.
    static LegacyCell text(const JetValue& value, const JetColumn& column)
    {
        if (std::holds_alternative<std::monostate>(value))
            return {};
        if (const auto* whole = std::get_if<std::int32_t>(&value))
            return QString::number(*whole);
        if (const auto* found = std::get_if<QString>(&value))
            return *found;
        throw otherKind(column);
    }

    const JetFile& m_file;
    const JetDefinition& m_definition;
    std::vector<const JetColumn*> m_columns; // parallel to the table's columns; null for one that is missing
    LegacyRows m_result;
    struct {
        std::uint64_t finerAmounts = 0;
        std::uint64_t droppedTimes = 0;
    } m_ofRow; // added to those of the result when the row is complete
    std::unordered_set<std::int64_t> m_counters;
};

} // namespace

LegacyRows readLegacyRows(
    const JetFile& file, const JetCatalogue& catalogue, const LegacyTable& table, JetDamage& damage)
{
    return locating({file.name(), table.name, {}, {}, {}}, [&] {
        const JetDefinition definition = catalogue.definitionOf(table.name);
        return RowsReader(file, definition, table).read(damage);
    });
}

} // namespace lorvan

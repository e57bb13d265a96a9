#include "tools/import_report.h"

#include "app/book.h"
#include "platform/amount_text.h"
#include "tools/jet_damage.h"
#include "tools/legacy_book.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int tableWidth = 16;
constexpr int countWidth = 13;

std::string rowLine(const QString& table, const QString& read, const QString& stored)
{
    return (QStringLiteral("  ") + table.leftJustified(tableWidth) + read.rightJustified(countWidth)
        + stored.rightJustified(countWidth) + u'\n')
        .toStdString();
}

std::string sumLine(const QString& what, Currency before, Currency after)
{
    return QStringLiteral("%1: %2 στο παλιό βιβλίο, %3 στο νέο\n")
        .arg(what, amountText(before), amountText(after))
        .toStdString();
}

Currency amountIn(const LegacyRow& row, std::size_t column)
{
    return Currency::fromTenThousandths(std::get<std::int64_t>(row[column]));
}

} // namespace

ImportReport::ImportReport(const LegacyBook& legacy, Book& made)
    : m_old(sumsIn(legacy))
    , m_new(sumsIn(made))
    , m_asksForOpeningBalance(legacy.asksForOpeningBalance())
{
    for (const LegacyRows& rows : legacy.tables) {
        Connection& connection = rows.table->file == LegacyTable::File::Main ? made.main() : made.auxiliary();
        auto count = connection.prepare(QStringLiteral("SELECT count(*) FROM %1").arg(rows.table->name).toStdString());
        m_rows.push_back(
            {rows.table->name, static_cast<std::int64_t>(rows.rows.size()), count.step() ? count.integer(0) : 0});
        m_finerAmounts += rows.finerAmounts;
        m_droppedTimes += rows.droppedTimes;
    }
}

ImportReport::Sums ImportReport::sumsIn(const LegacyBook& legacy)
{
    const LegacyRows& movements = legacy.table(legacyMovements);
    const std::size_t income = movements.table->columnIndex(QStringLiteral("esoda"));
    const std::size_t expense = movements.table->columnIndex(QStringLiteral("ejoda"));
    Sums sums;
    for (const LegacyRow& row : movements.rows) {
        sums.income += amountIn(row, income);
        sums.expense += amountIn(row, expense);
    }
    return sums;
}

ImportReport::Sums ImportReport::sumsIn(Book& made)
{
    auto sum = made.main().prepare("SELECT sum(esoda), sum(ejoda) FROM kinhseis");
    return sum.step() ? Sums{sum.currency(0), sum.currency(1)} : Sums{};
}

bool ImportReport::agrees() const
{
    return m_old == m_new
        && std::all_of(m_rows.begin(), m_rows.end(), [](const Rows& each) { return each.read == each.stored; });
}

void ImportReport::print(std::ostream& out) const
{
    out << rowLine(QStringLiteral("Γραμμές"), QStringLiteral("διαβάστηκαν"), QStringLiteral("γράφτηκαν"));
    for (const Rows& each : m_rows)
        out << rowLine(each.table, QString::number(each.read), QString::number(each.stored));
    out << '\n'
        << sumLine(QStringLiteral("Έσοδα"), m_old.income, m_new.income)
        << sumLine(QStringLiteral("Έξοδα"), m_old.expense, m_new.expense)
        << "Ποσά με τέσσερα δεκαδικά, επειδή δεν βρέθηκε λεπτό αρκετά κοντά: " << m_finerAmounts << '\n';
    if (m_droppedTimes != 0)
        out << "Ημερομηνίες που είχαν και ώρα, η οποία δεν κρατήθηκε: " << m_droppedTimes << '\n';
    if (m_asksForOpeningBalance)
        out << "Στο πρώτο άνοιγμα το πρόγραμμα θα ρωτήσει μία φορά το υπόλοιπο του ταμείου.\n";
}

void printDamage(const JetDamage& damage, std::ostream& out)
{
    if (!damage.collects())
        return;
    out << "\nΔεν διαβάστηκαν ή δεν συμφωνούν: " << damage.count() << '\n';
    for (const JetError& error : damage.listed())
        out << "  " << error.what() << '\n';
    if (damage.count() > damage.listed().size())
        out << "  …\n";
}

} // namespace lorvan

#include "legacy/import_tally.h"

#include "book/book.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_book.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"
#include "proof/book_check.h"

#include <algorithm>
#include <iterator>

namespace lorvan {
namespace {

constexpr int tableWidth = 16;
constexpr int countWidth = 13;
constexpr std::size_t mostDaysListed = 20;

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

std::vector<AuditedDay> differingDays(Connection& main)
{
    const Transaction transaction(main, Transaction::View::Steady);
    const CashAudit audit = auditCash(main, [](std::int64_t, std::int64_t) {});
    std::vector<AuditedDay> differing;
    if (audit.days)
        std::copy_if(audit.days->days.begin(), audit.days->days.end(), std::back_inserter(differing),
            [](const AuditedDay& day) { return !day.row || day.sumsWrong || day.balanceWrong; });
    return differing;
}

/// Income, expense and balance of one day.
QString figuresText(const CashDayFigures& figures)
{
    return QStringLiteral("%1 / %2 / %3")
        .arg(amountText(figures.income), amountText(figures.expense), amountText(figures.closingBalance));
}

QString dayText(const AuditedDay& day)
{
    const QString stored = day.row ? figuresText(day.row->figures) : QStringLiteral("λείπει");
    return QStringLiteral("%1: %2, από τις κινήσεις %3")
        .arg(dateText(dateFromStored(day.day)), stored, figuresText(day.expected));
}

Currency amountIn(const LegacyRow& row, std::size_t column)
{
    return Currency::fromTenThousandths(std::get<std::int64_t>(row[column]));
}

} // namespace

ImportTally::ImportTally(const LegacyBook& legacy, Book& made)
    : m_old(sumsIn(legacy))
    , m_new(sumsIn(made))
    , m_differingDays(differingDays(made.main()))
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

ImportTally::Sums ImportTally::sumsIn(const LegacyBook& legacy)
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

ImportTally::Sums ImportTally::sumsIn(Book& made)
{
    auto sum = made.main().prepare("SELECT sum(esoda), sum(ejoda) FROM kinhseis");
    return sum.step() ? Sums{sum.currency(0), sum.currency(1)} : Sums{};
}

bool ImportTally::agrees() const
{
    return m_old == m_new
        && std::all_of(m_rows.begin(), m_rows.end(), [](const Rows& each) { return each.read == each.stored; });
}

void ImportTally::print(std::ostream& out) const
{
    out << rowLine(QStringLiteral("Γραμμές"), QStringLiteral("διαβάστηκαν"), QStringLiteral("γράφτηκαν"));
    for (const Rows& each : m_rows)
        out << rowLine(each.table, QString::number(each.read), QString::number(each.stored));
    out << '\n'
        << sumLine(QStringLiteral("Έσοδα"), m_old.income, m_new.income)
        << sumLine(QStringLiteral("Έξοδα"), m_old.expense, m_new.expense)
        << "Ποσά με τέσσερα δεκαδικά, επειδή δεν βρέθηκε λεπτό αρκετά κοντά: " << m_finerAmounts << '\n';
    printDays(out);
    if (m_droppedTimes != 0)
        out << "Ημερομηνίες που είχαν και ώρα, η οποία δεν κρατήθηκε: " << m_droppedTimes << '\n';
    if (m_asksForOpeningBalance)
        out << "Στο πρώτο άνοιγμα το πρόγραμμα θα ρωτήσει μία φορά το υπόλοιπο του ταμείου.\n";
}

void ImportTally::printDays(std::ostream& out) const
{
    out << "Ημέρες που το ταμείο τους δεν βγαίνει από τις κινήσεις: " << m_differingDays.size() << '\n';
    if (m_differingDays.empty())
        return;
    out << "  (έσοδα / έξοδα / υπόλοιπο· μεταφέρθηκαν όπως ήταν)\n";
    for (std::size_t i = 0; i < std::min(m_differingDays.size(), mostDaysListed); ++i)
        out << "  " << dayText(m_differingDays[i]).toStdString() << '\n';
    if (m_differingDays.size() > mostDaysListed)
        out << "  … όλες με την εντολή lorvan-data check\n";
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

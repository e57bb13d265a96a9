#include "core/reports/report_text.h"
#include "platform/engine/transaction.h"
#include "reports/cheque_report.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <algorithm>
#include <map>
#include <random>
#include <tuple>

namespace lorvan::test {

namespace {

const QDate firstDay(2024, 2, 20);
constexpr int days = 40;

/// Amounts in cents.
struct Cheque {
    QDate day;
    std::int64_t income = 0, expense = 0, memorandum = 0;
    int code = 0;
};

/// Returns the cheques in the order of entry.
std::vector<Cheque> fillAtRandom(Connection& main, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    const auto some = [&] { return below(2) == 0 ? 0 : below(2) == 0 ? 100 : below(200'000'000); };
    std::vector<Cheque> cheques;
    Transaction transaction(main);
    auto movement = main.prepare(
        "INSERT INTO kinhseis (hmeromhnia, esoda, ejoda, L_tajeos, kvdikos, epitagh) VALUES (?,?,?,?,?,?)");
    for (int order = 0; order < 300; ++order) {
        const Cheque row{firstDay.addDays(below(days)), some(), some(), some(), below(4)};
        const bool isCheque = below(2) == 0;
        movement.bind(row.day, cents(row.income), cents(row.expense), cents(row.memorandum), row.code, isCheque).run();
        cheques.insert(cheques.end(), isCheque ? 1 : 0, row);
    }
    transaction.commit();
    return cheques;
}

QString amount(std::int64_t cents, const QString& zero = QStringLiteral("0"))
{
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    return cents == 0 ? zero : greek.toString(static_cast<double>(cents) / 100, 'f', 2);
}

QString chequeDay(QDate day)
{
    static const QString names = QStringLiteral("ΔεΤρΤεΠέΠαΣάΚυ");
    return names.mid(2 * (day.dayOfWeek() - 1), 2) + day.toString(QStringLiteral(" dd-MM-yyyy"));
}

void addLine(QStringList& lines, const QStringList& cells)
{
    const QString number = QString::number(lines.size() + 1).rightJustified(4);
    lines += (lines.size() % 2 == 0 ? u'#' + number : number) + u'|' + cells.join(u'|');
}

QStringList expectedDetails(std::vector<Cheque> cheques)
{
    std::stable_sort(cheques.begin(), cheques.end(), [](const Cheque& left, const Cheque& right) {
        return std::tuple(right.day, left.code) < std::tuple(left.day, right.code);
    });
    QStringList lines;
    Cheque sum;
    for (const Cheque& row : cheques) {
        sum.income += row.income;
        sum.expense += row.expense;
        sum.memorandum += row.memorandum;
        addLine(lines,
            {chequeDay(row.day), QString::number(row.code), {}, amount(row.memorandum, QStringLiteral(" ")),
                amount(row.income), amount(row.expense)});
    }
    const QStringList totals{amount(sum.income - sum.expense), amount(sum.memorandum, QStringLiteral("0,00")),
        amount(sum.income), amount(sum.expense)};
    return lines << QStringLiteral("*(11)|||Διαφορά = ") + totals.join(u'|');
}

QStringList expectedSums(const std::vector<Cheque>& cheques)
{
    std::map<std::tuple<QDate, std::int64_t, std::int64_t>, std::int64_t> sums;
    for (const Cheque& row : cheques)
        sums[{row.day, row.income, row.expense}] += row.memorandum;
    QStringList lines;
    for (const auto& [key, sum] : sums)
        addLine(lines, {chequeDay(std::get<0>(key)), amount(sum, {}).rightJustified(11)});
    return lines;
}

} // namespace

TEST(ChequeReport, printsWhatARandomBookHolds)
{
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const TemporaryBook book;
        Connection main = book.openMain();
        const std::vector<Cheque> all = fillAtRandom(main, seed);
        for (const auto& [from, to] : {std::pair(-3, days + 3), {5, 9}, {12, 38}, {7, 7}}) {
            SCOPED_TRACE(QStringLiteral("seed %1, days %2 to %3").arg(seed).arg(from).arg(to).toStdString());
            ReportInputs inputs;
            inputs.start = firstDay.addDays(from);
            inputs.end = firstDay.addDays(to);
            std::vector<Cheque> cheques = all;
            std::erase_if(cheques, [&](const Cheque& row) { return row.day < inputs.start || row.day > inputs.end; });
            EXPECT_EQ(linesOf(chequeReport(main, inputs)).mid(3), expectedDetails(cheques));
            inputs.form = ReportForm::Summary;
            EXPECT_EQ(linesOf(chequeReport(main, inputs)).mid(3), expectedSums(cheques));
        }
    }
}

} // namespace lorvan::test

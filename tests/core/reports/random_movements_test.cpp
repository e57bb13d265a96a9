#include "document/report_cells.h"
#include "platform/amount_text.h"
#include "platform/engine/transaction.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

namespace lorvan::test {

namespace {

constexpr int days = 40;
constexpr int mostCodes = 9;
const QDate firstDay(2024, 2, 20);

using Amounts = std::array<qint64, 3>; ///< cents: memorandum, income, expense

struct Row {
    qint32 code = 0, group = 0;
    int day = 0; ///< counted from the first one
    int letters = 1; ///< of the description
    Amounts amounts = {};
    friend auto operator<=>(const Row&, const Row&) = default;

    [[nodiscard]] QDate date() const { return firstDay.addDays(day); }
    [[nodiscard]] QString text() const { return QString(letters, u'α'); }
    [[nodiscard]] QString cells() const { return shortDateText(date()) + u'|' + text(); }
};

struct Code {
    qint32 code = 0, group = 0;
    QString groupName;
    int namePlace = 0; ///< in Greek order; the same for names that count as one
};

/// What a book was filled with: the movements in the order of entry, the codes by number.
struct Model {
    std::vector<Code> codes;
    std::set<qint32> knownCodes;
    std::vector<Row> rows;
};

std::vector<Row> rowsWithin(const Model& model, const ReportInputs& inputs)
{
    std::vector<Row> rows = model.rows;
    std::erase_if(rows, [&](const Row& row) { return row.date() < inputs.start || row.date() > inputs.end; });
    return rows;
}

using Random = std::function<int(int)>; ///< a number below another

Model fillAtRandom(Connection& main, const Random& below)
{
    const std::pair<QString, int> names[] = {{{}, 0}, {QStringLiteral(" "), 0}, {QStringLiteral("Άλφα"), 1},
        {QStringLiteral("βήτα"), 2}, {QStringLiteral(" ΒΉΤΑ"), 2}, {QStringLiteral("Γάμμα"), 3}};
    const qint64 amounts[] = {0, 0, 50, 150, 100'000, -250};
    Model model;
    Transaction transaction(main);
    main.execute("DELETE FROM kvdikoi");
    for (qint32 code = 0; code < mostCodes; code += below(4) == 0 ? 0 : 1 + below(2)) {
        const auto& [name, place] = names[below(6)];
        model.codes.push_back({code, below(4), name, place});
        model.knownCodes.insert(code);
        main.prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, lista, omada, aa_omadas) VALUES (?1,'κ',?1||' κ ',?,?)")
            .bind(code, name, model.codes.back().group)
            .run();
    }
    auto movement = main.prepare("INSERT INTO kinhseis (kvdikos, aa_omada, hmeromhnia, perigrafh, L_tajeos, esoda,"
                                 " ejoda) VALUES (?,?,?,?,?,?,?)");
    while (model.rows.size() < 300) {
        // The higher codes are rare, so that reading them by their index is worth its while.
        const Row row{below(below(9) == 0 ? mostCodes : 3), below(5), below(days), 1 + below(2),
            {amounts[below(6)], amounts[below(6)], amounts[below(6)]}};
        movement.bind(row.code, row.group, row.date(), row.text(), cents(row.amounts[0]), cents(row.amounts[1]),
            cents(row.amounts[2]));
        movement.run();
        model.rows.push_back(row);
    }
    transaction.commit();
    return model;
}

QString cellsOf(const Amounts& amounts)
{
    QStringList cells;
    for (const qint64 amount : amounts)
        cells += amountOrBlankText(cents(amount));
    return cells.join(u'|');
}

void operator+=(Amounts& sum, const Amounts& amounts)
{
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] += amounts[i];
}

qint64 evenEuros(qint64 amount)
{
    const qint64 rest = (amount % 100 + 100) % 100;
    const qint64 floor = (amount - rest) / 100;
    return 100 * (rest > 50 || (rest == 50 && floor % 2 != 0) ? floor + 1 : floor);
}

bool isChosen(const std::vector<qint32>& chosen, qint32 number)
{
    return chosen.empty() || std::count(chosen.begin(), chosen.end(), number) > 0;
}

/// A row of a report in sections; the amounts in the order of their columns.
struct Line {
    qint32 section = 0;
    QString name, cells;
    Amounts amounts = {};
};

QStringList inSections(const std::vector<Line>& lines, const QString& indent, Amounts& totals)
{
    QStringList texts;
    Amounts subtotal = {};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        const QString name = line.section == (i == 0 ? 0 : lines[i - 1].section) ? QStringLiteral(" ") : line.name;
        texts += QStringList{QString::number(i + 1), name, line.cells, cellsOf(line.amounts)}.join(u'|');
        subtotal += line.amounts;
        totals += line.amounts;
        if (i + 1 == lines.size() || lines[i + 1].section != line.section)
            texts += indent + QStringLiteral("Υποσύνολο|") + cellsOf(std::exchange(subtotal, {}));
    }
    return lines.empty() ? texts : texts << indent + QStringLiteral("Σύνολα|") + cellsOf(totals);
}

QStringList expectedDetails(const Model& model, const ReportInputs& inputs)
{
    std::vector<Row> rows = rowsWithin(model, inputs);
    std::stable_sort(rows.begin(), rows.end(), [](const Row& left, const Row& right) {
        return std::pair(left.code, right.day) < std::pair(right.code, left.day);
    });
    std::vector<Line> lines;
    for (const Row& row : rows) {
        const QString name =
            model.knownCodes.contains(row.code) ? QStringLiteral("%1 κ").arg(row.code) : QStringLiteral(" ");
        if (isChosen(inputs.codes, row.code))
            lines.push_back({row.code, name, row.cells(), {evenEuros(row.amounts[0]), row.amounts[1], row.amounts[2]}});
    }
    Amounts totals = {};
    const QStringList texts = inSections(lines, QStringLiteral("|||"), totals);
    return texts.empty() ? texts
                         : texts + QStringList(QStringLiteral("||Διαφορά|") + amountText(cents(totals[1] - totals[2])));
}

QStringList expectedSummary(const Model& model, const ReportInputs& inputs)
{
    std::map<qint32, Amounts> sums;
    for (const Row& row : rowsWithin(model, inputs)) {
        if (model.knownCodes.contains(row.code) && isChosen(inputs.codes, row.code))
            sums[row.code] += row.amounts;
    }
    QStringList texts;
    Amounts totals = {};
    for (const auto& [code, sum] : sums) {
        texts += QStringLiteral("%1|    %2 κ|").arg(texts.size() + 1).arg(code) + cellsOf(sum);
        totals += sum;
    }
    return texts.empty() ? texts
                         : texts << QStringLiteral("|Σύνολα|") + cellsOf(totals)
                                 << QStringLiteral("|Διαφορά  ") + amountText(cents(totals[1] - totals[2]));
}

/// Each distinct row once for each name that the codes of its group carry.
std::vector<std::pair<Row, QString>> byGroupName(const Model& model, const std::vector<Row>& rows)
{
    std::map<std::array<int, 5>, std::pair<Row, QString>> ordered;
    std::set<std::pair<int, Row>> seen;
    for (const Row& row : rows) {
        for (const Code& code : model.codes) {
            const int entry = static_cast<int>(seen.size());
            if (code.group == row.group && seen.emplace(code.namePlace, row).second)
                ordered[{code.namePlace, row.code, -row.day, row.group, entry}] = {row, code.groupName};
        }
    }
    std::vector<std::pair<Row, QString>> named;
    for (const auto& [place, row] : ordered)
        named.push_back(row);
    return named;
}

QStringList expectedGroups(const Model& model, const ReportInputs& inputs)
{
    std::vector<Line> lines;
    for (const auto& [row, name] : byGroupName(model, rowsWithin(model, inputs))) {
        if (isChosen(inputs.groups, row.group))
            lines.push_back({row.group, name, QStringLiteral("%1|").arg(row.code) + row.cells(),
                {row.amounts[1], row.amounts[2], row.amounts[0]}});
    }
    Amounts totals = {};
    return inSections(lines, QStringLiteral("||||"), totals);
}

QStringList expectedCard(const Model& model, const ReportInputs& inputs)
{
    std::vector<Row> rows = rowsWithin(model, inputs);
    for (Row& row : rows)
        row.amounts[0] = 0;
    std::array<QStringList, 3> columns;
    QStringList totals;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        qint64 total = 0;
        for (const auto& [row, name] : byGroupName(model, rows)) {
            const std::vector<qint32>& groups = inputs.cardColumns[i].groups;
            const qint64 amount = row.amounts[1] + row.amounts[2];
            if (groups.empty() || !isChosen(groups, row.group))
                continue;
            columns[i] += row.text() + u'|' + amountOrZeroText(cents(amount));
            total += amount;
        }
        totals += u'|' + amountOrZeroText(cents(total));
    }
    QStringList lines;
    const QString none(u'|');
    while (lines.size() < std::max({columns[0].size(), columns[1].size(), columns[2].size()})) {
        const qsizetype i = lines.size();
        lines += columns[0].value(i, none) + u'|' + columns[1].value(i, none) + u'|' + columns[2].value(i, none);
    }
    return lines.empty() ? lines : lines << totals.join(u'|');
}

ReportInputs selection(const Random& below)
{
    const auto some = [&below](int limit) {
        std::vector<qint32> numbers(static_cast<std::size_t>(below(3) == 0 ? 0 : below(limit)));
        std::generate(numbers.begin(), numbers.end(), [&] { return below(limit + 2); });
        return numbers;
    };
    ReportInputs inputs;
    inputs.start = firstDay.addDays(below(days + 4) - 2);
    inputs.end = inputs.start.addDays(below(4) == 0 ? below(3) - 1 : below(days));
    inputs.codes = some(mostCodes);
    inputs.groups = some(4);
    for (CardColumn& column : inputs.cardColumns)
        column.groups = some(4);
    return inputs;
}

QStringList rowsOf(const ReportDocument& document)
{
    QStringList rows;
    for (const ReportItem& row : document.rows())
        rows += row.cells().join(u'|');
    return rows.mid(1);
}

void compare(Connection& main, const Model& model, ReportInputs inputs)
{
    EXPECT_EQ(rowsOf(movementsByCodeReport(main, inputs)), expectedDetails(model, inputs));
    inputs.form = ReportForm::Summary;
    EXPECT_EQ(rowsOf(movementsByCodeReport(main, inputs)), expectedSummary(model, inputs));
    EXPECT_EQ(rowsOf(movementsByGroupReport(main, inputs)), expectedGroups(model, inputs));
    EXPECT_EQ(rowsOf(groupCardReport(main, inputs)), expectedCard(model, inputs));
}

} // namespace

TEST(ReportsOnMovements, printWhatARandomBookHolds)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const TemporaryBook book;
        Connection main = book.openMain();
        if (seed % 2 == 0)
            main.execute("DROP INDEX lorvan_kinhseis_kvdikos; CREATE INDEX narrow ON kinhseis (kvdikos)");
        std::mt19937 engine(seed);
        const Random below = [&engine](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
        const Model model = fillAtRandom(main, below);
        for (int round = 0; round < 25 && !testing::Test::HasFailure(); ++round) {
            SCOPED_TRACE("book " + std::to_string(seed) + ", selection " + std::to_string(round));
            compare(main, model, selection(below));
        }
    }
}

} // namespace lorvan::test

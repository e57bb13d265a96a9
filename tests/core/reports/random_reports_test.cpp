#include "document/report_cells.h"
#include "platform/amount_text.h"
#include "platform/engine/transaction.h"
#include "reports/movement_choice.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

// Whatever index a report reads its movements by, it shows what one plain query finds.

namespace lorvan::test {
namespace {

constexpr int days = 40;
constexpr int mostCodes = 9;
const QDate firstDay(2024, 2, 20);

using Random = std::function<int(int)>; ///< a number below another

/// Several names for a group, and movements that are equal. The higher codes are rare, so that reading them by their
/// index is worth its while.
void fillAtRandom(Connection& main, const Random& below)
{
    const char* const names[] = {"", " ", "Άλφα", "βήτα", " ΒΉΤΑ", "Γάμμα"};
    constexpr std::int64_t amounts[] = {0, 0, 100, 200, 100'000, -300};
    const auto amount = [&] { return cents(100 * amounts[below(6)]); };
    Transaction transaction(main, byAll());
    main.execute("DELETE FROM kvdikoi");
    for (int code = 0; code < mostCodes; code += below(4) == 0 ? 0 : 1 + below(2))
        main.prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas) VALUES (?,'κ',?,?)")
            .bind(code, QString::fromUtf8(names[below(6)]), below(4))
            .run();
    for (int i = 0; i < 300; ++i)
        main.prepare("INSERT INTO kinhseis (kvdikos, aa_omada, hmeromhnia, perigrafh, L_tajeos, esoda, ejoda)"
                     " VALUES (?,?,?,?,?,?,?)")
            .bind(below(below(9) == 0 ? mostCodes : 3), below(5), firstDay.addDays(below(days)),
                QString(1 + below(2), u'α'), amount(), amount(), amount())
            .run();
    transaction.commit();
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
    return inputs;
}

/// How a report shows a date, an amount, or any other value.
QString cellOf(const Statement& row, int column, char form)
{
    switch (form) {
    case 'd':
        return shortDateText(row.date(column));
    case 'a':
        return amountOrBlankText(row.currency(column)).trimmed();
    default:
        return row.text(column);
    }
}

/// What a query on the period finds; a letter of cellOf() for each column.
QStringList found(Connection& main, const ReportInputs& inputs, std::string_view forms, const std::string& sql)
{
    auto row = main.prepare(sql);
    row.bind(inputs.start, inputs.end);
    QStringList rows;
    while (row.step()) {
        QStringList cells;
        for (std::size_t i = 0; i < forms.size(); ++i)
            cells += cellOf(row, static_cast<int>(i), forms[i]);
        rows += cells.join(u'|');
    }
    return rows;
}

/// The cells from `first` on of those rows of a report that say something in the column `named`, or that very text.
QStringList shown(const ReportDocument& document, int first, int count, int named, const QString& text = {})
{
    QStringList rows;
    for (const ReportItem& row : document.rows()) {
        QStringList cells = row.cells();
        const QString name = cells.value(named).trimmed();
        if (text.isEmpty() ? name.isEmpty() : name != text)
            continue;
        for (QString& cell : cells)
            cell = cell.trimmed();
        rows += cells.mid(first, count).join(u'|');
    }
    return rows;
}

std::string within(const char* column, const std::vector<qint32>& numbers)
{
    return numbers.empty() ? "" : std::string(" AND +") + column + ' ' + inNumbers(numbers);
}

const std::string inPeriod = " FROM kinhseis NOT INDEXED WHERE hmeromhnia BETWEEN ?1 AND ?2";

void compareByCode(Connection& main, ReportInputs inputs)
{
    const std::string chosen = inPeriod + within("kvdikos", inputs.codes);
    const ReportDocument details = movementsByCodeReport(main, inputs);
    EXPECT_EQ(shown(details, 2, 5, 0),
        found(main, inputs, "dtaaa",
            "SELECT hmeromhnia, perigrafh, L_tajeos, esoda, ejoda" + chosen
                + " ORDER BY kvdikos, hmeromhnia DESC, aa"));
    const std::string sums = "sum(L_tajeos), sum(esoda), sum(ejoda)" + chosen;
    EXPECT_EQ(shown(details, 4, 3, 3, "Υποσύνολο"), found(main, inputs, "aaa", "SELECT " + sums + " GROUP BY kvdikos"));

    inputs.form = ReportForm::Summary;
    EXPECT_EQ(shown(movementsByCodeReport(main, inputs), 1, 4, 0),
        found(main, inputs, "taaa",
            "SELECT kvdikos||' κ', " + sums + " AND kvdikos IN (SELECT kvdikos FROM kvdikoi) GROUP BY kvdikos"));
}

/// Movements that differ, once for each name of their group.
void compareByGroup(Connection& main, const ReportInputs& inputs)
{
    const std::string compared = "aa_omada, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos";
    const std::string movements = " FROM (SELECT " + compared + ", min(aa) AS entry" + inPeriod
        + within("aa_omada", inputs.groups) + " GROUP BY " + compared
        + ") JOIN (SELECT DISTINCT aa_omadas, trim(omada) COLLATE greek AS name FROM kvdikoi) ON aa_omadas=aa_omada";
    const ReportDocument document = movementsByGroupReport(main, inputs);
    EXPECT_EQ(shown(document, 2, 6, 0),
        found(main, inputs, "tdtaaa",
            "SELECT kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos" + movements
                + " ORDER BY name, kvdikos, hmeromhnia DESC, aa_omada, entry"));
    EXPECT_EQ(shown(document, 5, 3, 4, "Σύνολα"),
        found(main, inputs, "aaa", "SELECT sum(esoda), sum(ejoda), sum(L_tajeos)" + movements + " GROUP BY NULL"));
}

} // namespace

TEST(RandomReports, showWhatAPlainQueryFindsWhateverTheIndexes)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const TemporaryBook book;
        Connection main = book.openMain();
        if (seed % 2 == 0)
            main.execute("DROP INDEX lorvan_kinhseis_kvdikos; CREATE INDEX narrow ON kinhseis (kvdikos)");
        std::mt19937 engine(seed);
        const Random below = [&engine](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
        fillAtRandom(main, below);
        for (int round = 0; round < 25 && !testing::Test::HasFailure(); ++round) {
            SCOPED_TRACE("book " + std::to_string(seed) + ", selection " + std::to_string(round));
            const ReportInputs inputs = selection(below);
            compareByCode(main, inputs);
            compareByGroup(main, inputs);
        }
    }
}

} // namespace lorvan::test

#include "core/reports/report_text.h"
#include "platform/engine/transaction.h"
#include "reports/movement_choice.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

// Whatever index a report reads its movements by, it shows of a selection what it shows of a book that holds nothing
// else.

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

/// Leaves the movements of the selection alone in a book that has a copy of all.
void keepOnly(Connection& alone, const ReportInputs& inputs, const char* column, const std::vector<qint32>& numbers)
{
    const std::string within = numbers.empty() ? "" : std::string(" AND ") + column + ' ' + inNumbers(numbers);
    alone.execute("DELETE FROM kinhseis");
    alone.prepare("INSERT INTO kinhseis SELECT * FROM every WHERE hmeromhnia BETWEEN ? AND ?" + within)
        .bind(inputs.start, inputs.end)
        .run();
}

void compare(Connection& full, Connection& alone, ReportInputs inputs)
{
    ReportInputs everything;
    everything.start = firstDay.addDays(-days);
    everything.end = firstDay.addDays(2 * days);
    keepOnly(alone, inputs, "kvdikos", inputs.codes);
    for (const ReportForm form : {ReportForm::Detailed, ReportForm::Summary}) {
        everything.form = inputs.form = form;
        EXPECT_EQ(wholeOf(movementsByCodeReport(full, inputs)), wholeOf(movementsByCodeReport(alone, everything)));
    }
    keepOnly(alone, inputs, "aa_omada", inputs.groups);
    EXPECT_EQ(wholeOf(movementsByGroupReport(full, inputs)), wholeOf(movementsByGroupReport(alone, everything)));
}

} // namespace

TEST(RandomReports, showOfASelectionWhatTheyShowOfABookThatHoldsNothingElse)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const TemporaryBook books[2];
        Connection full = books[0].openMain();
        Connection alone = books[1].openMain();
        std::mt19937 engine;
        const Random below = [&engine](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
        for (Connection* const main : {&full, &alone}) {
            engine.seed(seed);
            fillAtRandom(*main, below);
        }
        if (seed % 2 == 0)
            full.execute("DROP INDEX lorvan_kinhseis_kvdikos; CREATE INDEX narrow ON kinhseis (kvdikos)");
        alone.execute("DROP INDEX lorvan_kinhseis_kvdikos; DROP INDEX lorvan_kinhseis_hmeromhnia;"
                      "DROP INDEX lorvan_kinhseis_hmeromhnia_cheques;"
                      "PRAGMA synchronous = OFF; CREATE TEMP TABLE every AS SELECT * FROM kinhseis");
        for (int round = 0; round < 25 && !testing::Test::HasFailure(); ++round) {
            SCOPED_TRACE("book " + std::to_string(seed) + ", selection " + std::to_string(round));
            compare(full, alone, selection(below));
        }
    }
}

} // namespace lorvan::test

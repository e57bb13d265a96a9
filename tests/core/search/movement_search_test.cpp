#include "platform/amount_text.h"
#include "platform/search_text.h"
#include "search/movement_search.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace lorvan::test {
namespace {

const QDate today(2024, 3, 15);

SearchQuery read(const QString& typed)
{
    return readSearch(typed, today);
}

struct Result {
    QList<qint64> keys; ///< In the order of the list.
    std::vector<ReadingCounts> counts;
    SearchTotals totals;
};

Result search(Connection& main, const SearchQuery& query)
{
    MovementSearch search(query);
    SearchHits hits;
    while (!search.isAtEnd())
        hits.add(search.readOn(main));
    Result result{{}, search.counts(), hits.totals()};
    hits.forEach([&](const SearchHit& hit) { result.keys += hit.key; });
    return result;
}

QList<qint64> keys(Connection& main, const QString& typed)
{
    return search(main, read(typed)).keys;
}

TEST(MovementSearchTest, findsTextsWithoutAccentsCaseAndFinalSigma)
{
    const TemporaryBook book;
    book.addMovementRow(incomeOf(today, cents(100), "ΛΟΓΑΡΙΑΣΜΌΣ Ύδρευσης, µ café"));
    Connection main = book.openMain();
    for (const char* const found : {"λογαριασμος", "ΛΟΓΑΡΙΑΣΜΟΣ", "υδρ", "ΎΔΡΕΥΣΗΣ λογ", "\"σ υδ\"", "ασμοσ", "ρευσησ,",
             "μ", "CAFÉ", "cafe", "cafe\u0301", "υ\u0301δρ"})
        EXPECT_EQ(keys(main, found).size(), 1) << found;
    for (const char* const missing : {"υδωρ", "λογαριασμος x", "\"υδ σ\"", "'", "%", "_"})
        EXPECT_TRUE(keys(main, missing).empty()) << missing;
    for (const char* const bytes : {"ff41", "ce", "f09f9880", "41f09f", "ce91cc81"}) {
        main.execute(std::string("UPDATE kinhseis SET perigrafh=CAST(x'") + bytes + "' AS TEXT)");
        EXPECT_EQ(keys(main, "ποσό").size(), 0) << bytes;
        EXPECT_EQ(keys(main, "έσοδα").size(), 1) << bytes;
    }
    EXPECT_EQ(keys(main, "α").size(), 1); // with an accent of its own
}

TEST(MovementSearchTest, amountsAreThoseThatAreShown)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    const QStringList typed{"214,67", "214,665", "-0,01", "0", ">214,67", "<0", ">=0,01", "-5..0"};
    main.execute("INSERT INTO kinhseis (aa, hmeromhnia, esoda, ejoda) VALUES (1,20240315,0,0)");
    for (const qint64 units : {2146649, 2146650, 2146700, 2146749, 2146750, -149, -50, -49, 0, 49, 50, 149, -50050}) {
        main.prepare("UPDATE kinhseis SET ejoda=?").bind(units).run();
        const Currency shown = Currency::fromTenThousandths(units).roundedToCents();
        const Currency wanted = cents(21467);
        const bool expected[] = {shown == wanted, units == 2146650, shown == cents(-1), shown == Currency(),
            shown > wanted, shown < Currency(), shown >= cents(1), shown >= cents(-500) && shown <= Currency()};
        for (qsizetype i = 0; i < typed.size(); ++i)
            EXPECT_EQ(keys(main, typed[i]).size(), expected[i]) << typed[i].toStdString() << " in " << units;
    }
}

/// Random movements and queries, judged by other means: SearchText, and one term at a time.
TEST(MovementSearchTest, findsWhatAPlainLookAtEachMovementFinds)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    std::mt19937 random(5);
    const auto pick = [&random](const QStringList& from) { return from[qsizetype(random() % unsigned(from.size()))]; };
    const QStringList words{"ΝΕΡΌ", "έξοδα", "Επιταγή", "205", "3-11", "ΦΩΣ", "κωδ"};
    std::vector<Movement> all;
    for (int i = 0; i < 400; ++i) {
        MovementDraft movement{qint32(203 + random() % 4), today.addDays(-int(random() % 200)),
            pick(words) + u' ' + pick(words), {}, {}, {}, random() % 4 == 0};
        (random() % 2 ? movement.income : movement.expense) = cents(qint64(random() % 4) * 100);
        book.addMovementRow(movement);
        all.push_back({movement, i + 1});
    }
    const auto meets = [](const SearchTerm& term, const Movement& each, SearchReading reading) {
        const bool inWords =
            !term.words.empty() && std::all_of(term.words.begin(), term.words.end(), [&](const auto& word) {
                return SearchText(QString::fromStdU16String(word)).indexIn(each.description) >= 0;
            });
        const QString amount = amountText(each.income + each.expense).replace(",00", "");
        const QString& text = term.text;
        const bool meant = text == "έξοδα" ? !each.expense.isZero()
            : text == "επιταγή"            ? each.cheque
            : text == "κωδ 205"            ? each.code == 205
            : text == "3-11"               ? each.day == QDate(2024, 11, 3)
            : text == "2/2024"             ? each.day.month() == 2 && each.day.year() == 2024
            : text == ">1"                 ? amount > "1"
            : text == "205" || text == "2" ? amount == text
                                           : false;
        return (meant && reading != SearchReading::Words) || (inWords && reading != SearchReading::Meaning);
    };
    const QStringList parts{
        "έξοδα", "επιταγή", "κωδ 205", "3-11", "2/2024", ">1", "205", "2", "νερο", "φωσ", "\"205\""};
    for (int i = 0; i < 300; ++i) {
        SearchQuery query = read(pick(parts) + u' ' + pick(parts) + u' ' + pick(parts));
        for (SearchTerm& term : query.terms)
            term.reading = term.isAmbiguous() ? SearchReading(random() % 3) : SearchReading::Either;
        QList<qint64> expected;
        std::vector<ReadingCounts> counts(query.terms.size());
        Currency income;
        std::stable_sort(all.begin(), all.end(),
            [](const Movement& a, const Movement& b) { return std::pair(b.day, b.key) < std::pair(a.day, a.key); });
        for (const Movement& each : all) {
            const auto refuses = [&](const SearchTerm& term) { return !meets(term, each, term.reading); };
            const auto refused = std::count_if(query.terms.begin(), query.terms.end(), refuses);
            for (std::size_t t = 0; t < counts.size(); ++t) {
                const SearchTerm& term = query.terms[t];
                if (!term.isAmbiguous() || refused - refuses(term) > 0)
                    continue;
                counts[t].meaning += meets(term, each, SearchReading::Meaning);
                counts[t].words += meets(term, each, SearchReading::Words);
            }
            if (refused == 0) {
                expected += each.key;
                income += each.income;
            }
        }
        const Result result = search(main, query);
        EXPECT_EQ(result.keys, expected) << i;
        EXPECT_EQ(result.counts, counts) << i;
        EXPECT_EQ(result.totals.income, income) << i;
    }
}

TEST(MovementSearchTest, goesOnWhileOthersWriteAndTellsOfSumsThatAreTooLarge)
{
    const TemporaryBook book;
    book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<150000) INSERT INTO kinhseis"
                 " (aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda) SELECT i, 1, 20240101, 'ΝΕΡΟ', 5, 0 FROM n");
    Connection main = book.openMain();
    MovementSearch search(read("νερο"));
    SearchHits hits;
    hits.add(search.readOn(main));
    ASSERT_FALSE(search.isAtEnd());
    const qint64 first = hits.totals().count;
    book.execute("DELETE FROM kinhseis WHERE aa<=3 OR aa=150000");
    book.execute("INSERT INTO kinhseis (hmeromhnia, perigrafh, esoda) VALUES (20240101, 'ΝΕΡΟ', 5)");
    while (!search.isAtEnd())
        hits.add(search.readOn(main));
    EXPECT_EQ(hits.totals().count, 149'997);
    EXPECT_EQ(hits.totals().income, Currency::fromTenThousandths(5 * 149'997));
    EXPECT_EQ(hits.newest(2, nullptr).size(), 2U);
    EXPECT_EQ(hits.newest(2, hits.newest(100, nullptr).back()).size(), 100U);
    EXPECT_LT(first, 149'997);
    EXPECT_TRUE(MovementSearch({}).isAtEnd());

    book.execute("UPDATE kinhseis SET esoda=9223372036854775807 WHERE aa<7");
    EXPECT_TRUE(lorvan::test::search(main, read("νερο")).totals.isOutOfRange);
}

} // namespace
} // namespace lorvan::test

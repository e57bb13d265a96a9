#include "book/opened_book.h"
#include "proof/book_check.h"
#include "proof/book_repair.h"
#include "support/book_model.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

using Kind = FindingKind;
using Counts = std::map<FindingKind, std::int64_t>;

/// Four days: 11, 12, 13 and 15 March 2024.
constexpr auto soundBook = R"(
    INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, epitagh, L_tajeos) VALUES
        (100, 20240311, 'α', 1000000, 0, 1, 0, 0), (200, 20240312, 'β', 0, 300000, 0, 0, 0),
        (100, 20240315, 'γ', 50000, 0, 1, -1, 0), (100, 20240313, 'δ', 500000, 0, 1, 0, 70000),
        (200, 20240313, 'ε', 0, 200000, 0, 0, 0);
    INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240311, 1000000, 0, 1000000),
        (20240315, 50000, 0, 1050000), (20240312, 0, 300000, 700000), (20240313, 500000, 200000, 1000000);
)";
const CashDayLines soundDays{
    "20240311 10000 0 10000", "20240312 0 3000 7000", "20240313 5000 2000 10000", "20240315 500 0 10500"};

constexpr auto noProgress = [](std::int64_t, std::int64_t) {};

Counts findingsIn(Connection& book)
{
    Counts counts;
    const BookCheck check = checkContent(book, noProgress);
    for (const auto& [kind, list] : check.findings.byKind())
        counts[kind] = list.count;
    return counts;
}

Counts withoutRepaired(Counts counts)
{
    if (const auto notKept = counts.find(Kind::OpeningNotKept); notKept != counts.end())
        counts[Kind::OpeningBalance] = notKept->second;
    std::erase_if(counts, [](const auto& each) { return isRepairable(each.first); });
    return counts;
}

/// A movement of 100 cents that the cash days know nothing of.
std::string oneMore(const char* day)
{
    return std::string("INSERT INTO kinhseis (kvdikos, hmeromhnia, esoda, ejoda, aa_omada, L_tajeos) VALUES (100, ")
        + day + ", 10000, 0, 1, 0);";
}

/// Every row of every table but the cash days, as text.
QByteArray everythingElse(Connection& book)
{
    QByteArray rows;
    for (const char* const table : {"kinhseis", "kvdikoi", "omades", "taytothta"})
        rows += rowsOf(book, table);
    return rows + rowsOf(book, "klhsimotameioy", "auxiliary") + rowsOf(book, "codes", "auxiliary");
}

} // namespace

TEST(BookCheck, findsEachDamageAndTheRepairSetsRightWhatHasOneAnswer)
{
    const struct {
        const char* what;
        std::string damage;
        Counts findings;
        CashDayLines repaired = soundDays;
    } cases[] = {
        {"nothing", "", {}},
        {"other sums", "UPDATE tameio SET esoda=1, ejoda=2 WHERE hmeromhnia=20240312", {{Kind::DaySums, 1}}},
        {"a text for a sum", "UPDATE tameio SET ejoda='abc' WHERE hmeromhnia=20240311", {{Kind::DaySums, 1}}},
        {"a fraction for a balance", "UPDATE tameio SET ypoloipo=1050000.5 WHERE hmeromhnia=20240315",
            {{Kind::DayBalance, 1}}},
        {"a balance", "UPDATE tameio SET ypoloipo=7 WHERE hmeromhnia=20240312", {{Kind::DayBalance, 1}}},
        {"the least of all balances", "UPDATE tameio SET ypoloipo=-9223372036854775807-1 WHERE hmeromhnia=20240312",
            {{Kind::DayBalance, 1}}},
        {"sums and balance alike", "UPDATE tameio SET esoda=90000, ypoloipo=790000 WHERE hmeromhnia=20240312",
            {{Kind::DaySums, 1}, {Kind::DayBalance, 1}}},
        {"an empty sum that is 0", "UPDATE tameio SET esoda=NULL WHERE hmeromhnia=20240312", {}},
        {"no row", "DELETE FROM tameio WHERE hmeromhnia=20240312", {{Kind::MissingDay, 1}}},
        {"no last row", "DELETE FROM tameio WHERE hmeromhnia=20240315", {{Kind::MissingDay, 1}}},
        {"no rows", "DELETE FROM tameio", {{Kind::MissingDay, 4}}},
        {"a row twice", "INSERT INTO tameio SELECT NULL, hmeromhnia, esoda, ejoda, ypoloipo FROM tameio LIMIT 1",
            {{Kind::RepeatedDay, 1}}},
        {"a row thrice, the last one wrong",
            "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240313, 1, 2, 3), (20240313, 4, 5, 6)",
            {{Kind::RepeatedDay, 1}, {Kind::DaySums, 1}, {Kind::DayBalance, 1}}},
        {"a movement more", oneMore("20240312"), {{Kind::DaySums, 1}, {Kind::DayBalance, 3}},
            {soundDays[0], "20240312 100 3000 7100", "20240313 5000 2000 10100", "20240315 500 0 10600"}},
        {"a movement on a day of its own", oneMore("20240314"), {{Kind::MissingDay, 1}, {Kind::DayBalance, 1}},
            {soundDays[0], soundDays[1], soundDays[2], "20240314 100 0 10100", "20240315 500 0 10600"}},
        {"movements less on the first and the last day", "DELETE FROM kinhseis WHERE perigrafh IN ('α', 'γ')",
            {{Kind::DaySums, 2}, {Kind::DayBalance, 4}},
            {"20240311 0 0 0", "20240312 0 3000 -3000", "20240313 5000 2000 0", "20240315 0 0 0"}},
        {"an emptied day", "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240314, 0, 0, 1000000)",
            {}, {soundDays[0], soundDays[1], soundDays[2], "20240314 0 0 10000", soundDays[3]}},
        {"an opening balance", "UPDATE tameio SET ypoloipo=ypoloipo+20000 WHERE hmeromhnia>=20240313",
            {{Kind::OpeningNotKept, 1}},
            {soundDays[0], soundDays[1], "20240313 5000 2000 10200", "20240315 500 0 10700"}},
        {"an opening balance on the first day", "UPDATE tameio SET ypoloipo=ypoloipo+20000",
            {{Kind::OpeningNotKept, 1}},
            {"20240311 10000 0 10200", "20240312 0 3000 7200", "20240313 5000 2000 10200", "20240315 500 0 10700"}},
        {"the upgrade's opening balance on days that were there",
            "UPDATE tameio SET ypoloipo=20000 WHERE hmeromhnia>=20240312", {{Kind::OpeningNotKept, 3}},
            {soundDays[0], "20240312 0 3000 200", "20240313 5000 2000 200", "20240315 500 0 200"}},
        {"an opening balance and damage before and after it",
            "UPDATE tameio SET ypoloipo=ypoloipo+20000 WHERE hmeromhnia>=20240312;"
            "UPDATE tameio SET ypoloipo=0 WHERE hmeromhnia IN (20240311, 20240313)",
            {{Kind::OpeningNotKept, 1}, {Kind::DayBalance, 2}},
            {soundDays[0], "20240312 0 3000 7200", "20240313 5000 2000 10200", "20240315 500 0 10700"}},
        {"an opening balance and later a movement more",
            "UPDATE tameio SET ypoloipo=ypoloipo+20000 WHERE hmeromhnia>=20240312;" + oneMore("20240315"),
            {{Kind::OpeningNotKept, 1}, {Kind::DaySums, 1}, {Kind::DayBalance, 1}},
            {soundDays[0], "20240312 0 3000 7200", "20240313 5000 2000 10200", "20240315 600 0 10800"}},
        {"a kept opening balance",
            "INSERT INTO opening_difference VALUES (20240314, 20000), (20240312, 0);"
            "UPDATE tameio SET ypoloipo=ypoloipo+20000 WHERE hmeromhnia>=20240314",
            {{Kind::OpeningBalance, 1}}, {soundDays[0], soundDays[1], soundDays[2], "20240315 500 0 10700"}},
        {"a kept opening balance that a program computed away",
            "INSERT INTO opening_difference VALUES (20240312, 20000)",
            {{Kind::OpeningBalance, 1}, {Kind::DayBalance, 3}},
            {soundDays[0], "20240312 0 3000 7200", "20240313 5000 2000 10200", "20240315 500 0 10700"}},
        {"sums beyond all amounts", "UPDATE kinhseis SET esoda=9000000000000000000",
            {{Kind::SumTooLarge, 1}, {Kind::MovementBothSides, 2}}},
        {"amounts that are none",
            "UPDATE kinhseis SET L_tajeos='x' WHERE perigrafh='α'; UPDATE kinhseis SET L_tajeos=0.5 WHERE "
            "perigrafh='β';"
            "UPDATE kinhseis SET ejoda=NULL, L_tajeos=NULL WHERE perigrafh='γ'",
            {{Kind::MovementAmount, 2}, {Kind::MovementNullAmount, 1}}},
        {"both sides",
            "UPDATE kinhseis SET esoda=100000, ejoda=400000 WHERE perigrafh='β';"
            "UPDATE tameio SET esoda=100000, ejoda=400000 WHERE hmeromhnia=20240312",
            {{Kind::MovementBothSides, 1}}, {soundDays[0], "20240312 1000 4000 7000", soundDays[2], soundDays[3]}},
        {"no date",
            oneMore("NULL") + oneMore("20240230") + oneMore("'χθες'")
                + "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (NULL, 0, 0, 0)",
            {{Kind::MovementWithoutDate, 3}, {Kind::DayWithoutDate, 1}},
            {"0 0 0 0", soundDays[0], soundDays[1], soundDays[2], soundDays[3]}},
        {"codes and groups",
            "UPDATE kvdikoi SET kvdikos=101 WHERE kvdikos=200; UPDATE kinhseis SET aa_omada=9 WHERE perigrafh='α';"
            "INSERT INTO omades (aa, perigrafh) VALUES (3, 'Ομάδα');"
            "INSERT INTO kvdikoi (kvdikos, omada, aa_omadas) VALUES (300, 'Άλλη', 3), (301, ' ', 0), (302, 'Χ', 0),"
            " (303, 'Ομάδα', 3), (303, 'Ομάδα', 3), (304, 'Παλιά', 8), (NULL, '', 0)",
            {{Kind::CodeWithoutNumber, 1}, {Kind::MovementUnknownCode, 1}, {Kind::MovementGroup, 1},
                {Kind::RepeatedCode, 1}, {Kind::CodeUnknownGroup, 1}, {Kind::CodeGroupName, 2}}},
        {"closed days, users, version",
            "INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (20240311), (20240311), (20240312), (0), ('x');"
            "INSERT INTO codes (uname) VALUES ('ΑΝΝΑ'), ('άννα'), ('Άννα'), (' '), (NULL);"
            "INSERT INTO taytothta VALUES (3)",
            {{Kind::RepeatedClosedDay, 1}, {Kind::ClosedDayWithoutDate, 2}, {Kind::RepeatedUser, 1},
                {Kind::UserWithoutName, 2}, {Kind::VersionRows, 1}}},
    };
    for (const auto& [what, damage, findings, repaired] : cases) {
        const TemporaryBook folder;
        folder.execute(soundBook);
        OpenedBook book(folder.folder(), Connection::Access::ReadWrite);
        Connection& connection = book.connection();
        connection.execute(damage);
        EXPECT_EQ(findingsIn(connection), findings) << what;
        const QByteArray others = everythingElse(connection);
        (void)repairBook(connection, book.files(), book.keys(), byAll(), noProgress);
        EXPECT_EQ(findingsIn(connection), withoutRepaired(findings)) << what;
        EXPECT_EQ(storedCashDays(connection), repaired) << what;
        EXPECT_EQ(everythingElse(connection), others) << what;
    }
}

} // namespace lorvan::test

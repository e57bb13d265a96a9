#include "journal/journal_reading.h"
#include "reports/journal_report.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

/// 30,000 rows: mostly movements of 20 codes on 100 days by three users, few of any other kind, most of these old.
/// Every seventh movement got another code.
constexpr auto manyRows = R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30000)
    INSERT INTO journal (id, at, user, computer, action, subject, day, code, before, after, previous, hash)
    SELECT i, 1700000000000+i, CASE i%3 WHEN 0 THEN 'Μαρία' WHEN 1 THEN 'ΜΑΡΙΑΝΘΗ' ELSE 'Διαχειριστής' END, 'ταμείο',
        'modify', CASE WHEN i%5000=7 THEN 'book' WHEN i<50 THEN 'user/Α' WHEN i%1000=9 THEN 'group/2'
            WHEN i%100=5 THEN 'day/20240315' ELSE 'movement/'||(i%500) END,
        CASE WHEN i<50 THEN NULL ELSE 20240101+i%28 END, CASE WHEN i<50 THEN NULL ELSE 100+i%20 END,
        '{"kvdikos":'||(100+i%20+(i%7=0))||'}', '{"kvdikos":'||(100+i%20)||'}', '', '' FROM n)";

struct Wanted {
    const char* name;
    JournalFilter filter;
    const char* condition; ///< The same in SQL.
};

QString idsOf(const std::vector<JournalRow>& rows)
{
    QString ids;
    for (const JournalRow& row : rows)
        ids += QString::number(row.id) + u',';
    return ids.chopped(ids.isEmpty() ? 0 : 1);
}

TEST(JournalReadingTest, findsWhatAFilterAcceptsNewestFirstInPagesOfAnySize)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    main.execute("DELETE FROM journal");
    main.execute(manyRows);
    const QDate day(2024, 1, 15);
    const std::vector<Wanted> all{
        {"all", {}, "1"},
        {"a day", {.day = day}, "day=20240115"},
        {"a user, as typed", {.user = "μαρια"}, "user IN ('Μαρία','ΜΑΡΙΑΝΘΗ')"},
        {"a code, now or before", {.code = 108}, "code=108 OR before LIKE '%:108}' AND code NOT NULL"},
        {"movements", {.kind = JournalKind::Movement}, "subject LIKE 'movement/%'"},
        {"a rare kind", {.kind = JournalKind::User}, "subject LIKE 'user/%'"},
        {"of a rare kind", {.user = "Διαχ", .kind = JournalKind::Group},
            "subject LIKE 'group/%' AND user='Διαχειριστής'"},
        {"the book", {.kind = JournalKind::Book}, "subject='book'"},
        {"one movement", {.subject = "movement/31"}, "subject='movement/31'"},
        {"of one movement", {.day = day, .code = 111, .subject = "movement/31"},
            "subject='movement/31' AND day=20240115 AND (code=111 OR before LIKE '%:111}')"},
        {"a day's movements of a user", {.day = day, .user = "ανθη", .kind = JournalKind::Movement},
            "subject LIKE 'movement/%' AND day=20240115 AND user='ΜΑΡΙΑΝΘΗ'"},
        {"nothing", {.user = "κανείς"}, "0"},
    };
    for (const Wanted& wanted : all) {
        for (const std::size_t page : {std::size_t(3), std::size_t(1000), std::size_t(100'000)}) {
            JournalReading reading(wanted.filter);
            std::vector<JournalRow> found;
            while (!reading.isAtEnd() && (page > 3 || found.size() < 100)) {
                const auto rows = reading.readOn(main, page);
                EXPECT_LE(rows.size(), page);
                found.insert(found.end(), rows.begin(), rows.end());
            }
            const QString expected = valueOf(main,
                (std::string("SELECT group_concat(id) FROM (SELECT id FROM journal WHERE ") + wanted.condition
                    + " ORDER BY id DESC)")
                    .c_str());
            const QString ids = idsOf(found);
            EXPECT_EQ(ids, page == 3 ? expected.left(ids.size()) : expected) << wanted.name << " by " << page;
        }
    }
}

TEST(JournalReadingTest, ofABookWithoutAJournalIsAtItsEnd)
{
    const TemporaryBook book;
    book.execute("DROP TABLE journal");
    Connection main = book.openMain();
    JournalReading reading({});
    EXPECT_TRUE(reading.readOn(main, 10).empty());
    EXPECT_TRUE(reading.isAtEnd());
}

TEST(JournalReadingTest, isPrintedWithItsFilterAndAllOfItsRows)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    main.execute("DELETE FROM journal");
    main.execute(manyRows);
    const auto print = [&](const JournalFilter& filter) { return journalReport(main, filter, "Υποκατάστημα"); };
    const ReportDocument users = print({.kind = JournalKind::User});
    EXPECT_EQ(users.paragraphs().front().text(), u"Φίλτρα: είδος: Χρήστες");
    ASSERT_EQ(users.rows().size(), 49u); // with the empty one below the titles
    EXPECT_EQ(users.rows().at(1).cells().mid(1),
        QStringList({"ΜΑΡΙΑΝΘΗ", "ταμείο", "", "", "Μεταβολή χρήστη", "Χρήστης Α: kvdikos 110 → 109"}));
    EXPECT_EQ(print({.user = "κανείς"}).paragraphs().back().text(), u"Δεν υπάρχει καμία αλλαγή.");
    EXPECT_THROW((void)journalReport(main, {.user = "κανείς"}, {}, [](int) { return false; }), ReportCancelled);
}

} // namespace
} // namespace lorvan::test

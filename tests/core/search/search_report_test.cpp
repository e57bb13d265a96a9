#include "platform/date_text.h"
#include "reports/search_report.h"
#include "search/recent_searches.h"
#include "search/search_texts.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

TEST(SearchReportTest, hasWhatIsFoundTheNewestDayFirstAndItsSums)
{
    const TemporaryBook book;
    const QDate day(2024, 3, 15);
    book.addMovementRow(expenseOf(day, cents(1234567), "ΝΕΡΟ"));
    book.addMovementRow(incomeOf(day.addDays(-1), cents(50), "νερό"));
    book.addMovementRow(expenseOf(day.addDays(1), cents(100), "ΦΩΣ"));
    Connection main = book.openMain();
    const auto print = [&](const QString& typed) { return searchReport(main, readSearch(typed, day), "Υποκατάστημα"); };
    const ReportDocument water = print("νερο >abc");
    EXPECT_EQ(water.paragraphs().front().text(), u"Αναζήτηση: «νερο» (στην περιγραφή) – Δεν κατάλαβα: «>abc»");
    QStringList lines;
    for (const auto& row : water.rows())
        lines += row.cells().join(u'|');
    EXPECT_EQ(lines.mid(1),
        QStringList({"15-03-2024|200|Προμήθειες|ΝΕΡΟ|0|12.345,67|", "14-03-2024|100|Λιανική|νερό|0,50|0|",
            "Σύνολα|||2 κινήσεις|0,50|12.345,67|"}));
    EXPECT_EQ(print("έξοδα τίποτα").paragraphs().back().text(), u"Δεν βρέθηκε καμία κίνηση.");
    EXPECT_EQ(searchQueryText(readSearch(u"έξοδα κωδ 5", day)),
        "Αναζήτηση: «έξοδα» (κινήσεις εξόδων ή στην περιγραφή) «κωδ 5» (κωδικός 5 ή στην περιγραφή)");
    EXPECT_THROW((void)searchReport(main, readSearch(u"νερο", day), {}, [](int) { return false; }), ReportCancelled);
}

TEST(RecentSearchesTest, keepsTheLastTenEachOnce)
{
    const QTemporaryDir folder;
    const RecentSearches recent{SettingsStore(folder.filePath("Lorvan.ini"))};
    EXPECT_TRUE(recent.list().empty());
    for (const char* const text : {"α", "β; =[x]", "  ", "γ\"", "α"})
        recent.remember(text);
    recent.remember(QString(1000, u'x'));
    EXPECT_EQ(recent.list(), QStringList({"α", "γ\"", "β; =[x]"}));
    for (int i = 0; i < 12; ++i)
        recent.remember(QString::number(i));
    EXPECT_EQ(recent.list().size(), RecentSearches::most);
    EXPECT_EQ(recent.list().value(0), "11");
}

} // namespace
} // namespace lorvan::test

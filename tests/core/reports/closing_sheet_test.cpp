#include "reports/closing_sheet.h"

#include "cashbook/cash_book.h"
#include "cashbook/counted_cash.h"
#include "cashbook/journal_keeping.h"
#include "core/reports/report_text.h"
#include "journal/check_code.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);

class ClosingSheetTest : public testing::Test {
protected:
    ClosingSheetTest()
    {
        keepJournal(book.main(), book.auxiliary());
        insert(incomeOf(monday.addDays(-1), cents(5'000)));
        for (const int amount : {900, 123'400})
            insert(incomeOf(monday, cents(amount)));
        insert(expenseOf(monday, cents(2'050)));
    }

    void insert(const MovementDraft& movement) { (void)cashBook.insert(movement); }
    [[nodiscard]] QString sheet() const
    {
        Connection both = book.openBoth();
        return wholeOf(closingSheet(both, monday, "Κεντρικό"));
    }
    [[nodiscard]] QString lastCode()
    {
        return checkCode(valueOf(book.auxiliary(), "SELECT hash FROM seals ORDER BY id DESC LIMIT 1"));
    }

    TemporaryBook temporary;
    Book book = temporary.open();
    CashBook cashBook{book, byAll()};
};

} // namespace

TEST_F(ClosingSheetTest, tellsOfTheDayAsItWasSealedAndOfWhatHappenedSince)
{
    const auto expectParts = [this](const char* when, const std::vector<QString>& parts) {
        for (const QString& part : parts)
            EXPECT_TRUE(sheet().contains(part)) << when << ": " << part.toStdString() << '\n' << sheet().toStdString();
    };
    expectParts("open", {"Η ημέρα δεν έχει σφραγίδα."});
    const ClosedDay closed = cashBook.close(monday).value();
    EXPECT_EQ(closed.checkCode, lastCode());
    EXPECT_FALSE(cashBook.close(monday));
    expectParts("closed",
        {"Δευτέρα 11-03-2024", "Υπόλοιπο από την 10-03-2024    50,00", "100|Λιανική|2|1.243,00|",
            "200|Προμήθειες|1| |20,50", "|Σύνολα|3|1.243,00|20,50", "Υπόλοιπο ταμείου    1.272,50",
            "Κωδικός ελέγχου " + closed.checkCode + ", έκδοση 1", "από τον χρήστη Σοφία", "Ταμίας|Υπεύθυνος"});
    EXPECT_FALSE(sheet().contains("Καταμέτρηση"));

    CountedCash counted;
    for (const auto& [kind, count] : {std::pair(1, 6), {6, 14}, {10, 6}, {14, 3}}) // 200, 5, 0,20 and 0,01
        counted.setCount(static_cast<std::size_t>(kind), count);
    EXPECT_THROW((void)keepCountedCash(book.auxiliary(), by({true, false, true}), monday, counted), NotPermitted);
    EXPECT_TRUE(keepCountedCash(book.auxiliary(), byAll(), monday, counted));
    EXPECT_FALSE(keepCountedCash(book.auxiliary(), byAll(), monday.addDays(1), counted));
    EXPECT_EQ(countedCashOf(book.auxiliary(), monday), counted);
    expectParts("counted",
        {"Χαρτονομίσματα 5|14|70,00", "Κέρματα 0,20|6|1,20", "Μετρήθηκαν||1.271,23", "Διαφορά από το υπόλοιπο||-1,27"});

    insert(incomeOf(monday.addDays(-1), cents(1)));
    expectParts("an earlier day changed",
        {"Υπόλοιπο από την 10-03-2024    50,00",
            "Μεταβλήθηκε η μεταφορά: το υπόλοιπο από την προηγούμενη είναι τώρα "
            "50,01."});
    insert(incomeOf(monday, cents(100)));
    expectParts("changed",
        {"Υπόλοιπο ταμείου    1.273,51", lastCode() + ", έκδοση 2", "Έκδοση 2: η ημέρα άλλαξε",
            "Μετρήθηκαν||1.271,23"});
    temporary.execute("UPDATE kinhseis SET perigrafh='x' WHERE hmeromhnia=20240311");
    expectParts("tampered", {"Προσοχή: οι κινήσεις δεν είναι όπως σφραγίστηκαν."});
}

TEST(CountedCash, readsOnlyCounts)
{
    for (const char* const wrong : {"", "[]", "5", R"({"20":-1})", R"({"20":1000000})", R"({"20")"})
        EXPECT_FALSE(CountedCash::fromJson(wrong)) << wrong;
    EXPECT_EQ(CountedCash::fromJson(R"({"50000":999999,"1":1})")->sum(), cents(49'999'950'001));
}

} // namespace lorvan::test

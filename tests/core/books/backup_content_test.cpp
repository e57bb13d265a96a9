#include "books/backup_content.h"

#include "backup/book_archive.h"
#include "backup/book_backup.h"
#include "cashbook/cash_book.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {

TEST(BackupContent, tellsWhatABackupHoldsAndLeavesThePlaceAsItWas)
{
    const TemporaryBook book;
    {
        Book open = book.open();
        CashBook cashBook(open, byAll());
        for (const int day : {4, 20})
            (void)cashBook.insert(incomeOf(QDate(2024, 3, day), cents(123'450)));
    }
    book.close(QDate(2024, 3, 4));
    book.addUser("Σοφία", "α");
    const QString backup =
        makeBackupByHand(book.files(), testKeys(), fixedClock().now(), [](qint64, qint64) { return true; });
    book.execute("DELETE FROM kinhseis");
    const QString before = namesIn(book.folder());
    const auto none = [](qint64, qint64) {};
    const std::vector<KnownBook> known{
        {{.dataFolder = "/none"}}, {{.dataFolder = book.folder(), .heading = "Κεντρικό"}}};

    const QTemporaryDir beside;
    for (const QString& place : {book.folder(), beside.filePath("νέο")}) {
        const QString text =
            contentLines(lookIntoBackup(backup, BookFiles(place), none), headingOfBackup(backup, known)).join("|");
        for (const char* const part :
            {"lorvan-2024-03-15-120000.tar, ", "|Τίτλος: Κεντρικό|",
                "|Ημέρες: από 04-03-2024 έως 20-03-2024, τελευταίο υπόλοιπο 2.469,00|Κινήσεις: 2|Κωδικοί: 2, ομάδες: 1|"
                "Χρήστες: 1|Τελευταίο κλείσιμο: 04-03-2024|Έλεγχος: το βιβλίο στο αντίγραφο είναι εντάξει."})
            EXPECT_TRUE(text.contains(part)) << text.toStdString();
    }
    EXPECT_EQ(namesIn(book.folder()), before);
    EXPECT_EQ(namesIn(beside.path()), "");

    book.execute("DELETE FROM tameio");
    const QString damaged = beside.filePath("a.tar");
    makeBackup(book.files(), damaged, testKeys());
    book.execute("DELETE FROM kvdikoi");
    writeFile(beside.filePath("half.tar"), readFile(damaged).left(5'000));
    EXPECT_EQ(headingOfBackup(damaged, known), "");
    EXPECT_THROW((void)lookIntoBackup(beside.filePath("half.tar"), book.files(), none), BackupUnusable);
}

} // namespace lorvan::test

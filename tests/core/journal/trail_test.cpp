#include "proof/trail_acceptance.h"
#include "proof/trail_audit.h"

#include "backup/book_backup.h"
#include "backup/book_restore.h"
#include "backup/daily_backup.h"
#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "cashbook/journal_keeping.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "journal/check_code.h"
#include "proof/code_answer.h"
#include "proof/opening_balance.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "users/administration.h"
#include "users/user_accounts.h"

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);
const QDate friday(2024, 3, 15);

/// A book with two movements on a closed and sealed Monday and one on an open Friday.
class TrailTest : public testing::Test {
protected:
    TrailTest()
    {
        keepJournal(book.main(), book.auxiliary());
        for (const auto& [day, amount] : {std::pair(monday, 900), {monday, 1'100}, {friday, 1'000}})
            (void)cashBook.insert(incomeOf(day, cents(amount)));
        cashBook.close(monday);
    }

    [[nodiscard]] Connection both() const { return book.openBoth(); }

    /// The kinds and numbers of all faults, "kind/key".
    [[nodiscard]] std::string faults() const
    {
        Connection opened = both();
        std::string text;
        for (const TrailFault& fault : auditTrail(opened).faults)
            text += std::to_string(static_cast<int>(fault.kind)) + '/' + std::to_string(fault.key) + ' ';
        return text;
    }
    static std::string fault(FindingKind kind, std::int64_t key)
    {
        return std::to_string(static_cast<int>(kind)) + '/' + std::to_string(key) + ' ';
    }

    [[nodiscard]] CodeAnswer answer(const QString& code) const
    {
        Connection opened = both();
        return answerForCode(opened, code);
    }
    [[nodiscard]] QString lastCode() const
    {
        Connection opened = both();
        return checkCode(valueOf(opened, "SELECT hash FROM seals ORDER BY id DESC LIMIT 1"));
    }

    TemporaryBook temporary;
    Book book = temporary.open();
    CashBook cashBook{book, byAll()};
};

constexpr auto lastRow = "SELECT action || ' ' || subject || ' ' || ifnull(day, '-') || ' ' || ifnull(code, '-') || ' '"
                         " || user || ' ' || ifnull(before, '-') || ' ' || ifnull(after, '-')"
                         " FROM journal ORDER BY id DESC LIMIT 1";

} // namespace

TEST_F(TrailTest, eachChangeLeavesItsRow)
{
    const MovementDraft changed = expenseOf(friday, cents(250), " ΔΕΗ ");
    const auto state = [](const char* code, int amount, const char* column, const char* text) {
        return QString("{\"L_tajeos\":0,\"aa\":3,%1\"epitagh\":0,%2\"hmeromhnia\":20240315,\"kvdikos\":%3,"
                       "\"perigrafh\":\"%4\"}")
            .arg(QString(column) == "ejoda" ? QString("\"ejoda\":%1,").arg(amount) : QString("\"ejoda\":0,"),
                QString(column) == "esoda" ? QString("\"esoda\":%1,").arg(amount) : QString("\"esoda\":0,"), code,
                text);
    };
    const QString before = state("100", 100'000, "esoda", "είσπραξη");
    const QString after = state("200", 25'000, "ejoda", "ΔΕΗ");
    Connection main = temporary.openMain();
    const auto expectRow = [&](const QString& row) { EXPECT_EQ(valueOf(main, lastRow), row); };
    (void)cashBook.modify(3, changed);
    expectRow("modify movement/3 20240315 200 Σοφία " + before + ' ' + after);
    (void)cashBook.remove(3);
    expectRow("remove movement/3 20240315 200 Σοφία " + after + " -");
    (void)renameGroup(main, byAll(), 1, "Έσοδα");
    expectRow(R"(modify group/1 - - Σοφία {"aa":1,"perigrafh":"Πωλήσεις"} {"aa":1,"perigrafh":"Έσοδα"})");
    (void)renameGroup(main, byAll(), 1, " Έσοδα ");
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM journal WHERE subject='group/1'"), "1") << "the same: no row";
    (void)modifyCode(main, byAll(), 1, {"100", "Νέα", "Έσοδα", true}, 0);
    expectRow(R"(modify code/1 - 100 Σοφία {"aa":1,"aa_omada":1,"aa_omadas":1,"digest":)"
              R"("7b76def98004c3eb3878e6d0612898129c4b58898ef64559478bec1a44bec4ff","energos":true,"esodo":true,)"
              R"("kvdikos":100,"moved":2,"omada":"Έσοδα","perigrafh":"Λιανική"} {"aa":1,"aa_omadas":0,"energos":true,)"
              R"("esodo":true,"kvdikos":100,"omada":"Έσοδα","perigrafh":"Νέα"})");
    Connection all = both();
    const qint64 user = addUser(all, byAll(), "Άννα", "μυστικό", {});
    expectRow(
        R"(insert user/Άννα - - Σοφία - {"r_eggrafes":false,"r_klhsimo":false,"r_kvdikoi":false,"uname":"Άννα"})");
    EXPECT_TRUE(changeUser(all, byAll(), {user, "Άννα", "μυστικό", {}}, {user, "Άννα", "άλλο", {}}));
    expectRow(R"(modify user/Άννα - - Σοφία {"r_eggrafes":false,"r_klhsimo":false,"r_kvdikoi":false,"uname":"Άννα"})"
              R"( {"newPassword":true,"r_eggrafes":false,"r_klhsimo":false,"r_kvdikoi":false,"uname":"Άννα"})");
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM journal WHERE before || after LIKE '%μυστικό%'"), "0");
    EXPECT_EQ(faults(), "");
}

TEST_F(TrailTest, whatWasChangedWithoutTheJournalIsRecordedWhenItIsFound)
{
    temporary.addUser("Νίκος", "1");
    temporary.close(friday);
    keepJournal(book.main(), book.auxiliary());
    EXPECT_EQ(valueOf(book.main(), "SELECT group_concat(action || ' ' || subject) FROM journal WHERE id>5"),
        "found user/Νίκος,found day/20240315");
    keepJournal(book.main(), book.auxiliary());
    EXPECT_EQ(valueOf(book.main(), "SELECT count(*) FROM journal"), "7") << "once";
    EXPECT_EQ(faults(), "");
    temporary.openAuxiliary().execute("UPDATE codes SET r_klhsimo=-1");
    Connection opened = both();
    (void)addUser(opened, byAll(), "Άννα", "2", {});
    EXPECT_EQ(valueOf(opened, "SELECT group_concat(action || ' ' || subject) FROM journal WHERE id>7"),
        "found user/Νίκος,found user/Νίκος,insert user/Άννα");
    opened.execute("DELETE FROM main.journal");
    (void)addUser(opened, byAll(), "Εύα", "3", {});
    keepJournal(book.main(), book.auxiliary());
    EXPECT_EQ(valueOf(opened, "SELECT group_concat(action) FROM journal"), "begin,found,found,insert");
}

TEST_F(TrailTest, aChangeHidesNoneThatWasMadeAroundTheProgram)
{
    (void)renameGroup(book.main(), byAll(), 1, "α");
    temporary.execute("INSERT INTO journal (id) VALUES (9223372036854775807);"
                      "UPDATE kinhseis SET esoda=7 WHERE aa=3; UPDATE omades SET perigrafh='β'");
    (void)cashBook.modify(3, incomeOf(friday, cents(9)));
    (void)cashBook.remove(3);
    (void)renameGroup(book.main(), byAll(), 1, "γ");
    EXPECT_EQ(valueOf(book.main(),
                  "SELECT group_concat(action || ' ' || subject) FROM (SELECT * FROM journal WHERE id>6 ORDER BY id)"),
        "found movement/3,modify movement/3,remove movement/3,found group/1,modify group/1");
}

TEST_F(TrailTest, namesWhatWasChangedAroundTheProgram)
{
    const struct {
        const char* main;
        const char* auxiliary;
        std::string faults;
    } cases[] = {
        {"UPDATE kinhseis SET esoda=esoda+1 WHERE aa=1; UPDATE kinhseis SET esoda=esoda-1 WHERE aa=2", "",
            fault(FindingKind::SealedDayAltered, 1) + fault(FindingKind::MovementAltered, 1)
                + fault(FindingKind::MovementAltered, 2)},
        {"DELETE FROM kinhseis WHERE aa=2", "",
            fault(FindingKind::SealedDayAltered, 1) + fault(FindingKind::MovementAltered, 2)},
        {"INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, epitagh, L_tajeos) VALUES"
         " (100, 20240311, 'x', 0, 0, 0, 0)",
            "", fault(FindingKind::SealedDayAltered, 1)},
        {"UPDATE kinhseis SET aa=-aa WHERE aa<3; UPDATE kinhseis SET aa=3+aa WHERE aa<0", "",
            fault(FindingKind::SealedDayAltered, 1) + fault(FindingKind::MovementAltered, 1)
                + fault(FindingKind::MovementAltered, 2)}, // the other order
        {"UPDATE kinhseis SET perigrafh='άλλη' WHERE aa=3", "", fault(FindingKind::MovementAltered, 3)},
        {"", "DELETE FROM klhsimotameioy", fault(FindingKind::SealedDayAltered, 1)},
        {"UPDATE journal SET user='άλλος' WHERE id=3", "", fault(FindingKind::JournalBroken, 3)},
        {"DELETE FROM journal WHERE id=2", "", fault(FindingKind::JournalBroken, 3)},
        {"UPDATE journal SET id=-id WHERE id>2; UPDATE journal SET id=1-id WHERE id<0", "",
            fault(FindingKind::JournalBroken, 4)}, // and the rows behind it
        {"INSERT INTO journal (id) VALUES (9223372036854775807)", "UPDATE seals SET id=9223372036854775807",
            fault(FindingKind::JournalBroken, std::numeric_limits<std::int64_t>::max())
                + fault(FindingKind::SealBroken, std::numeric_limits<std::int64_t>::max())},
        {"DROP TABLE journal", "", fault(FindingKind::SealWithoutJournal, 1)},
        {"", "DROP TABLE seals", fault(FindingKind::SealMissing, 1)},
        {"DELETE FROM journal WHERE id=5", "", fault(FindingKind::SealWithoutJournal, 1)},
        {"", "UPDATE seals SET income=1", fault(FindingKind::SealBroken, 1) + fault(FindingKind::SealedDayAltered, 1)},
        {"", "UPDATE seals SET carried=1", fault(FindingKind::SealBroken, 1)},
        {"", "UPDATE seals SET day=0", fault(FindingKind::SealBroken, 1) + fault(FindingKind::SealMissing, 1)},
        {"", "DELETE FROM seals", fault(FindingKind::SealMissing, 1)},
        {"INSERT INTO opening_difference VALUES (20240310, 500);"
         "UPDATE tameio SET ypoloipo=ypoloipo+500 WHERE hmeromhnia>20240309",
            "", fault(FindingKind::CarryAltered, 1) + fault(FindingKind::OpeningAltered, 0)},
        {"", "DELETE FROM seals; DELETE FROM klhsimotameioy", fault(FindingKind::SealMissing, 1)},
    };
    const QByteArray main = readFile(temporary.files().mainDatabase());
    const QByteArray auxiliary = readFile(temporary.files().auxiliaryDatabase());
    for (const auto& each : cases) {
        openCopy(temporary.files().mainDatabase()).execute(each.main);
        openCopy(temporary.files().auxiliaryDatabase()).execute(each.auxiliary);
        EXPECT_EQ(faults(), each.faults) << each.main << each.auxiliary;
        Connection opened = both();
        EXPECT_EQ(sealOlderDays(opened, byAll(), 5), 0) << each.auxiliary;
        EXPECT_EQ(faults(), each.faults) << "nothing is sealed in silence";
        EXPECT_GT(acceptFaults(opened, byAll()).faults, 0);
        EXPECT_EQ(faults(), "") << each.main << each.auxiliary;
        EXPECT_TRUE(auditTrail(opened).findings().isInOrder());
        book = Book(temporary.openMain(), temporary.openAuxiliary());
        writeFile(temporary.files().mainDatabase(), main);
        writeFile(temporary.files().auxiliaryDatabase(), auxiliary);
        book = temporary.open();
    }
}

TEST_F(TrailTest, anAcceptanceCoversNoMoreThanWasFound)
{
    const auto acceptAll = [this] {
        Connection opened = both();
        EXPECT_GT(acceptFaults(opened, byAll()).faults, 0);
        EXPECT_EQ(faults(), "");
    };
    temporary.execute("UPDATE journal SET user='άλλος' WHERE id=3");
    acceptAll();
    temporary.execute("UPDATE journal SET user='τρίτος' WHERE id=3");
    EXPECT_EQ(faults(), fault(FindingKind::JournalBroken, 3));
    acceptAll();
    temporary.openAuxiliary().execute("UPDATE seals SET carried=1");
    acceptAll();
    temporary.openAuxiliary().execute("UPDATE seals SET carried=2");
    EXPECT_EQ(faults(), fault(FindingKind::SealBroken, 1));
    acceptAll();
    temporary.execute("UPDATE journal SET action='accept', subject='journal/'||id WHERE id=2");
    EXPECT_EQ(faults(), fault(FindingKind::JournalBroken, 2)) << "a row cannot accept itself";
}

TEST_F(TrailTest, aChangeOfADayThatWasAlteredAroundTheProgramHidesNothing)
{
    const QString code = lastCode();
    temporary.execute("UPDATE kinhseis SET esoda=esoda+1 WHERE aa=2");
    (void)cashBook.insert(incomeOf(monday, cents(5)));
    EXPECT_EQ(lastCode(), code) << "no new seal";
    EXPECT_EQ(answer(code).verdict, CodeAnswer::Verdict::Altered);
    EXPECT_NE(faults(), "");
}

TEST_F(TrailTest, eachSealThatTheJournalTellsOfMustBeThere)
{
    const auto acceptAll = [this](int missing) {
        EXPECT_EQ(faults(), fault(FindingKind::SealMissing, missing));
        Connection opened = both();
        EXPECT_EQ(acceptFaults(opened, byAll()).faults, 1);
        EXPECT_EQ(faults(), "");
        EXPECT_EQ(answer(lastCode()).seal.version, missing + 1);
    };
    (void)cashBook.insert(incomeOf(monday, cents(5)));
    (void)cashBook.remove(4);
    temporary.openAuxiliary().execute("DELETE FROM seals WHERE id>1");
    acceptAll(3); // the day is as it was sealed first
    temporary.openAuxiliary().execute("DELETE FROM seals WHERE id>1");
    acceptAll(4); // once more than was accepted
    temporary.openAuxiliary().execute("DELETE FROM seals");
    acceptAll(5);
    temporary.close(friday);
    Connection opened = both();
    EXPECT_EQ(sealOlderDays(opened, byAll(), 5), 1);
    opened.execute("DELETE FROM auxiliary.seals WHERE day=20240315; DELETE FROM klhsimotameioy");
    EXPECT_EQ(faults(), fault(FindingKind::SealMissing, 1) + fault(FindingKind::SealedDayAltered, 1));
}

TEST_F(TrailTest, aCarriedBalanceMovesOnlyByWhatTheJournalTells)
{
    (void)cashBook.insert(incomeOf(monday.addDays(-20), cents(5)));
    cashBook.close(friday);
    (void)cashBook.insert(incomeOf(monday.addDays(-19), cents(7)));
    (void)cashBook.modify(4, expenseOf(monday.addDays(-20), cents(3)));
    Connection opened = both();
    EXPECT_EQ(faults(), "");
    EXPECT_EQ(auditTrail(opened).findings().count(FindingKind::CarryMoved), 2);
    for (const std::string shift : {"500", "1"}) {
        temporary.execute("UPDATE tameio SET ypoloipo=ypoloipo+" + shift);
        EXPECT_EQ(faults(), fault(FindingKind::CarryAltered, shift == "1" ? 3 : 1));
        EXPECT_EQ(acceptFaults(opened, byAll()).faults, 1);
        EXPECT_EQ(faults(), "") << shift;
    }
}

TEST_F(TrailTest, whatWasCountedIsWhatTheJournalTells)
{
    CountedCash counted;
    counted.setCount(6, 3);
    EXPECT_TRUE(cashBook.keepCount(monday, counted));
    EXPECT_TRUE(cashBook.keepCount(monday, counted)) << "the same: no row";
    counted.setCount(10, 7);
    EXPECT_TRUE(cashBook.keepCount(monday, counted));
    EXPECT_EQ(valueOf(book.main(), lastRow), R"(count day/20240311 20240311 - Σοφία {"500":3} {"20":7,"500":3})");
    EXPECT_EQ(valueOf(book.main(), "SELECT count(*) FROM journal WHERE action='count'"), "2");
    EXPECT_EQ(faults(), "");
    for (const std::string other : {R"('{"500":3}')", "NULL", "'x'"}) {
        temporary.openAuxiliary().execute("UPDATE seals SET counted=" + other);
        EXPECT_EQ(faults(), fault(FindingKind::CountAltered, 0)) << other;
        Connection opened = both();
        EXPECT_EQ(acceptFaults(opened, byAll()).faults, 1);
        temporary.openAuxiliary().execute("UPDATE seals SET counted='{\"500\":1}'");
    }
}

TEST_F(TrailTest, aSealedDayThatWasOpenedAroundTheProgramIsNotSealedAgain)
{
    for (const char* const gone : {"", "DELETE FROM seals"}) {
        temporary.openAuxiliary().execute(std::string("DELETE FROM klhsimotameioy;") + gone);
        const std::string before = faults();
        EXPECT_EQ(cashBook.close(monday)->checkCode, "");
        EXPECT_EQ(faults(), before) << gone;
        Connection opened = both();
        EXPECT_EQ(acceptFaults(opened, byAll()).faults, 1);
        EXPECT_EQ(faults(), "");
    }
    temporary.openAuxiliary().execute("DELETE FROM klhsimotameioy");
    temporary.close(monday.addDays(-1));
    temporary.close(monday.addDays(1));
    Connection opened = both();
    closeOpenDays(opened, byAll(), [] { return true; });
    EXPECT_EQ(valueOf(opened, "SELECT group_concat(action) FROM (SELECT action FROM journal ORDER BY id DESC LIMIT 4)"),
        "close,found,found,found");
    EXPECT_EQ(faults(), fault(FindingKind::SealedDayAltered, 1)) << "closed with the others";
}

TEST_F(TrailTest, aCodeVouchesForTheJournalUpToItsClosing)
{
    const QString code = lastCode();
    temporary.execute("UPDATE journal SET user='άλλος' WHERE id=3");
    EXPECT_EQ(answer(code).verdict, CodeAnswer::Verdict::JournalAltered);
    Connection opened = both();
    EXPECT_EQ(acceptFaults(opened, byAll()).faults, 1);
    EXPECT_EQ(answer(code).verdict, CodeAnswer::Verdict::JournalAltered) << "paper knows of no acceptance";
    temporary.execute("DELETE FROM journal");
    EXPECT_EQ(answer(code).verdict, CodeAnswer::Verdict::JournalAltered);
    temporary.openAuxiliary().execute("UPDATE seals SET balance=1");
    EXPECT_EQ(answer(code).verdict, CodeAnswer::Verdict::Altered);
}

TEST_F(TrailTest, aSealedDayThatIsChangedIsSealedAgain)
{
    const QString first = lastCode();
    EXPECT_EQ(answer(first.toLower().remove('-')).verdict, CodeAnswer::Verdict::Holds);
    (void)cashBook.insert(incomeOf(friday.addDays(-20), cents(5)));
    EXPECT_EQ(answer(first).verdict, CodeAnswer::Verdict::Holds) << "only the carried balance differs";
    EXPECT_EQ(*answer(first).balanceNow, answer(first).seal.balance + cents(5));
    Connection opened = both();
    EXPECT_EQ(auditTrail(opened).findings().count(FindingKind::CarryMoved), 1);
    (void)cashBook.remove(1);
    EXPECT_EQ(answer(first).verdict, CodeAnswer::Verdict::Resealed);
    EXPECT_EQ(answer(lastCode()).seal.version, 2);
    EXPECT_EQ(answer(lastCode()).verdict, CodeAnswer::Verdict::Holds);
    opened.execute("UPDATE kinhseis SET esoda=7 WHERE aa=2");
    EXPECT_EQ(answer(lastCode()).verdict, CodeAnswer::Verdict::Altered);
    EXPECT_EQ(acceptFaults(opened, byAll()).faults, 2) << "the day and the movement";
    EXPECT_EQ(answer(first).verdict, CodeAnswer::Verdict::Accepted);
    EXPECT_EQ(answer("0000-0000-00").verdict, CodeAnswer::Verdict::Unknown);
    EXPECT_EQ(answer("K7QF-2M9T").verdict, CodeAnswer::Verdict::NoCode);
}

TEST_F(TrailTest, daysClosedEarlierAreSealedInSteps)
{
    temporary.close(friday);
    temporary.close(monday.addDays(-1));
    Connection opened = both();
    EXPECT_EQ(sealOlderDays(opened, byAll(), 1), 1);
    EXPECT_EQ(sealOlderDays(opened, byAll(), 5), 1);
    EXPECT_EQ(sealOlderDays(opened, byAll(), 5), 0);
    EXPECT_EQ(
        valueOf(opened, "SELECT group_concat(day || ' ' || late) FROM seals"), "20240311 0,20240310 -1,20240315 -1");
    EXPECT_EQ(faults(), "");
}

TEST_F(TrailTest, theJournalOutlivesADeletionAndARestore)
{
    const QString copy = makeDailyBackup(temporary.files(), testKeys(), fixedClock().now()).value();
    cashBook.close(friday);
    const QString onPaper = lastCode();
    RestoredBook(copy, temporary.files()).replace(byAll());
    book = temporary.open();
    EXPECT_EQ(faults(), "");
    EXPECT_TRUE(valueOf(book.main(), lastRow).startsWith("restore book - - Σοφία - {\"codes\":[\"" + onPaper));
    EXPECT_EQ(answer(onPaper).verdict, CodeAnswer::Verdict::NewerThanCopy);
    EXPECT_EQ(answer(lastCode()).verdict, CodeAnswer::Verdict::Holds);
    RestoredBook(copy, temporary.files()).replace(byAll());
    EXPECT_EQ(answer(onPaper).verdict, CodeAnswer::Verdict::NewerThanCopy) << "after a second restore, too";
    book = temporary.open();
    temporary.execute("UPDATE kinhseis SET esoda=7 WHERE aa=1");
    Connection opened = both();
    EXPECT_EQ(acceptFaults(opened, byAll()).faults, 2);
    (void)deleteAllData(temporary.files(), testKeys(), byAll());
    EXPECT_EQ(faults(), "");
    EXPECT_EQ(auditTrail(opened).accepted, 0) << "of what is gone";
    EXPECT_EQ(valueOf(book.main(), "SELECT group_concat(action) FROM (SELECT action FROM journal WHERE id>4)"),
        "close,restore,accept,accept,clear");
    EXPECT_EQ(valueOf(book.auxiliary(), "SELECT count(*) FROM seals"), "0");
}

TEST_F(TrailTest, aRestoreOfAnEarlierReleasesBookBeginsTheJournal)
{
    const QString copy = temporary.path("earlier.tar");
    temporary.execute("DROP TABLE journal; DROP TABLE opening_difference");
    makeBackup(temporary.files(), copy, testKeys());
    RestoredBook(copy, temporary.files()).replace(byAll());
    book = temporary.open();
    book.ensureSchema(openingSteps());
    EXPECT_EQ(valueOf(book.main(), "SELECT group_concat(action) FROM journal"), "begin,restore");
    EXPECT_EQ(valueOf(book.main(), "SELECT count(*) FROM opening_difference"), "0") << "still looked for";
}

} // namespace lorvan::test

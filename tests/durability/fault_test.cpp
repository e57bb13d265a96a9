#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "durability/stored_state.h"
#include "platform/engine/sql_error.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "support/watched_disk.h"
#include "tools/tool_run.h"
#include "users/administration.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <functional>
#include <iostream>

// Every call to the disk may fail, once or from there on. Afterwards the book is the old or the new one, as the program
// said.
//
// Beyond the first 60 calls only every seventh fails, and the last 20; LORVAN_ALL_FAULTS=1 has every one fail.

namespace lorvan::test {
namespace {

const QDate today(2024, 3, 15);

enum class Outcome { Done, NotDone, Unknown };

struct Result {
    Outcome outcome;
    std::string said = {};
};

std::vector<int> failingCalls(int calls, int stride)
{
    const bool isEveryOne = qEnvironmentVariableIsSet("LORVAN_ALL_FAULTS");
    std::vector<int> chosen;
    for (int call = 1; call <= calls; ++call) {
        if (isEveryOne || call <= 60 || call % stride == 0 || call > calls - 20)
            chosen.push_back(call);
    }
    return chosen;
}

bool isGreek(const std::string& text)
{
    return text.find('\xCE') != std::string::npos || text.find('\xCF') != std::string::npos;
}

class FaultTest : public testing::Test {
protected:
    FaultTest() { makeSmallBook(original); }

    using Run = std::function<Result(DiskFault& fault)>;
    using State = std::function<std::string()>;

    [[nodiscard]] QString in(const QString& name) const { return temporary.filePath(name); }

    /// Has every call fail in turn while `run` works on a copy of the original book.
    void failEach(const Run& run, const State& state, int stride = 7)
    {
        const auto fresh = [&] { copyFolder(original, book); };
        fresh();
        const std::string before = state();
        DiskFault none;
        fresh();
        const Result undisturbed = run(none);
        ASSERT_EQ(undisturbed.outcome, Outcome::Done) << undisturbed.said;
        const std::string after = state();
        ASSERT_TRUE(before != after);
        int tried = 0;
        int wrong = 0;
        for (const int call : failingCalls(none.calls, stride)) {
            for (const auto& [error, isLasting] : kinds) {
                DiskFault fault{call, error, isLasting};
                fresh();
                const Result result = run(fault);
                std::string trouble = troubleIn(result, fault, before, after, state);
                if (trouble.empty() && !remaindersIn(book).empty()) {
                    QFile::remove(book + "/kept.tar"); // it would be refused
                    DiskFault nothing;
                    (void)run(nothing); // clears away what was left
                    trouble = remaindersIn(book);
                }
                ++tried;
                if (!trouble.empty() && ++wrong <= 5)
                    ADD_FAILURE() << "call " << call << " of " << none.calls << " fails with " << error
                                  << (isLasting ? " from there on: " : ": ") << trouble << '\n'
                                  << result.said;
            }
        }
        std::cout << "faults: " << tried << ", wrong: " << wrong << '\n';
        EXPECT_EQ(wrong, 0);
    }

    /// A change of the open book, which is closed while the fault lasts.
    void failEachCall(const std::function<void(Book&)>& change)
    {
        const auto run = [&](DiskFault& fault) -> Result {
            auto opened = std::make_unique<Book>(openBookToWrite(book));
            const WatchedDisk watched(nullptr, &fault);
            const Result result = resultOf([&] { change(*opened); });
            opened.reset();
            return result;
        };
        failEach(run, theBook);
    }

    /// A command line, which names the book's folder as %1.
    void failEachCall(const QString& command, const State& state, int stride = 7)
    {
        const auto run = [&](DiskFault& fault) -> Result {
            const WatchedDisk watched(nullptr, &fault);
            const ToolRun done = runTool(today, command.arg(book), "κωδικός");
            EXPECT_TRUE(done.status != ExitStatus::Failed || isGreek(done.errors)) << done.errors;
            if (done.errors.find("δεν είναι γνωστό") != std::string::npos)
                return {Outcome::Unknown, done.errors};
            return {done.status == ExitStatus::Failed ? Outcome::NotDone : Outcome::Done, done.errors};
        };
        failEach(run, state, stride);
    }

    template <typename Change> static Result resultOf(Change change)
    {
        try {
            change();
            return {Outcome::Done};
        } catch (const CommitUnknown& failure) {
            return {Outcome::Unknown, failure.what()};
        } catch (const std::exception& failure) {
            return {Outcome::NotDone, failure.what()};
        }
    }

    const QTemporaryDir temporary;
    const QString original = temporary.filePath("original");
    const QString book = temporary.filePath("book");
    const State theBook = [this] { return storedBook(book); };

    static constexpr std::array<std::pair<int, bool>, 4> kinds{
        {{ENOSPC, false}, {EIO, false}, {ENOSPC, true}, {EIO, true}}};

private:
    std::string troubleIn(const Result& result, const DiskFault& fault, const std::string& before,
        const std::string& after, const State& state) const
    {
        const std::string marker = storedFile(BookFiles(book).usageMarker());
        const std::string found = state();
        if (found != before && found != after)
            return "neither the old nor the new book: " + found.substr(0, 200);
        if (result.outcome == Outcome::Done && found != after)
            return "told as done, and is not";
        if (result.outcome == Outcome::NotDone && found != before)
            return "told as not done, and is";
        if (!fault.isLasting && marker != "none" && !marker.starts_with('0'))
            return "the marker stays in use";
        return {};
    }
};

} // namespace

TEST_F(FaultTest, changesOfTheOpenBook)
{
    const QString longText(3000, u'ω');
    const std::function<void(Book&)> changes[] = {
        [](Book& open) { (void)CashBook(open, by()).insert(incomeOf(today, cents(5))); },
        [&](Book& open) { (void)CashBook(open, by()).modify(3, incomeOf(today, cents(5), longText)); },
        [](Book& open) { (void)CashBook(open, by()).remove(3); },
        [](Book& open) { closeDay(open.auxiliary(), byAll(), today); },
        [this](Book&) {
            Connection both = openBoth(book);
            closeDay(both, byAll(), today);
        },
        [](Book& open) {
            const qint64 row = listCodes(open.main(), CodeSelection::All).front().row;
            (void)modifyCode(open.main(), byAll(), row, {"101", "Νέα", {}}, 0);
        },
        [](Book& open) { (void)renameGroup(open.main(), byAll(), 1, "Έσοδα"); },
        [](Book& open) { (void)removeGroup(open.main(), byAll(), 1); },
    };
    for (const auto& change : changes)
        failEachCall(change);
}

TEST_F(FaultTest, deletionOfAllData)
{
    const auto run = [&](DiskFault& fault) {
        KeyRing keys(bookPassword());
        const WatchedDisk watched(nullptr, &fault);
        return resultOf([&] { (void)deleteAllData(BookFiles(book), keys, byAll()); });
    };
    failEach(run, theBook);
}

TEST_F(FaultTest, newBooks)
{
    QDir(original).removeRecursively();
    QDir().mkdir(original);
    failEachCall("create|%1|--user|Άννα", theBook);
    failEachCall("demo|%1", theBook, 997);
    failEachCall(QString("import|%1|").arg(olderBook("empty")) + "%1", theBook, 97);
}

TEST_F(FaultTest, exportToFiles)
{
    const auto state = [this] {
        const QDir csv(book + "/csv");
        return csv.entryList({"*.csv", "*.xlsx"}, QDir::Files).join(u' ').toStdString()
            + storedFile(csv.filePath("kinhseis.csv"));
    };
    failEachCall("export|%1|%1/csv", state, 97);
}

TEST_F(FaultTest, aCheckTellsAFailingDiskFromDamage)
{
    const auto check = [this](DiskFault& fault) {
        const WatchedDisk watched(nullptr, &fault);
        return runTool(today, "check|" + original);
    };
    DiskFault none;
    ASSERT_EQ(check(none).status, ExitStatus::Done);
    int failed = 0;
    for (int call = 1; call <= none.calls; ++call) {
        for (const bool isLasting : {false, true}) {
            DiskFault fault{call, EIO, isLasting};
            const ToolRun run = check(fault);
            EXPECT_NE(run.status, ExitStatus::Found) << "call " << call << isLasting << run.out << run.errors;
            failed += run.status == ExitStatus::Failed;
        }
    }
    EXPECT_GT(failed, none.calls);
}

TEST_F(FaultTest, importCsv)
{
    writeFile(in("csv/kinhseis.csv"), "kvdikos,hmeromhnia,perigrafh,esoda,ejoda\n100,2024-03-14,a,5.00,\n");
    failEachCall("import-csv|%1|" + in("csv"), theBook);
}

TEST_F(FaultTest, repair)
{
    openCopy(original + "/lorvan.mdb").execute("UPDATE tameio SET esoda=esoda+100 WHERE hmeromhnia=20240314");
    failEachCall("check|%1|--repair", theBook);
}

TEST_F(FaultTest, backup)
{
    const QString backup = "/kept.tar";
    const auto state = [&] {
        const QString restored = in("restored");
        QDir(restored).removeRecursively();
        if (!QFile::exists(book + backup))
            return storedBook(book);
        const ToolRun run = runTool(today, QString("restore|%1|%2").arg(book + backup, restored));
        return run.errors + (storedBook(restored) == storedBook(book) ? "same" : "another") + " in the backup";
    };
    failEachCall("backup|%1|" + book + backup, state);
}

TEST_F(FaultTest, restore)
{
    const QString backup = in("kept.tar");
    ASSERT_EQ(runTool(today, QString("backup|%1|%2").arg(original, backup)).status, ExitStatus::Done);
    openCopy(original + "/lorvan.mdb").execute("UPDATE kinhseis SET perigrafh='another'");
    failEachCall("restore|" + backup + "|%1|--replace", theBook);
}

} // namespace lorvan::test

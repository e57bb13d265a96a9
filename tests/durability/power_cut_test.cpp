#include "book/path_file.h"
#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "cashbook/undo_list.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "durability/stored_state.h"
#include "marker/usage_marker.h"
#include "platform/files/settings_store.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "support/watched_disk.h"
#include "tools/tool_run.h"
#include "users/administration.h"
#include "users/user_accounts.h"

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <random>

// Power is cut between any two things that are done to the disk. What was told as done is there afterwards, whatever
// the disk kept of the rest; what was under way is there wholly or not at all.
//
// LORVAN_POWER_CUTS=10000 makes so many cuts instead of 500.

namespace lorvan::test {
namespace {

const QDate today(2024, 3, 15);

int cutsOfAll()
{
    const int wanted = qEnvironmentVariableIntValue("LORVAN_POWER_CUTS");
    return wanted > 0 ? wanted : 500;
}

/// What the disk shows of a change, read below a folder.
using State = std::function<std::string(const QString& folder)>;
using Step = std::function<void()>;

class PowerCutTest : public testing::Test {
protected:
    PowerCutTest() { makeSmallBook(book); }

    [[nodiscard]] QString in(const QString& name) const { return root + u'/' + name; }

    /// Takes the steps, and cuts them so often: a share of all cuts in hundredths. What is left beside the book then,
    /// `next` clears away.
    void cutDuring(const std::vector<Step>& steps, const State& state, int share, const Step& next = {})
    {
        m_next = next;
        DiskLog log(root);
        std::vector<Confirmed> confirmed{{0, state(root)}};
        for (const Step& step : steps) {
            {
                const WatchedDisk watched(&log);
                step();
            }
            confirmed.push_back({log.length(), state(root)});
            ASSERT_TRUE(isWhole(confirmed.back().state)) << confirmed.back().state;
            ASSERT_TRUE(confirmed.back().state != confirmed[confirmed.size() - 2].state) << "a step changes nothing";
        }
        ASSERT_TRUE(QDir().rename(root, temporary.filePath("before")));
        cut(log, confirmed, state, std::max(1, cutsOfAll() * share / 100));
    }

    const QTemporaryDir temporary;
    const QString root = temporary.filePath("disk");
    const QString book = root + "/book";

private:
    Step m_next;

    struct Confirmed {
        std::size_t at; ///< In the log.
        std::string state;
    };

    /// In the same place: a journal of two files names the third that they share by its whole path.
    void cut(const DiskLog& log, const std::vector<Confirmed>& confirmed, const State& state, int count) const
    {
        int lost = 0;
        for (int i = 0; i < count; ++i) {
            const DiskLog::Cut cut = cutNumber(i, log, confirmed);
            const std::string failure = failureAfter(cut, log, confirmed, state);
            if (!failure.empty() && ++lost <= 3)
                ADD_FAILURE() << "cut " << i << " at " << cut.at << " of " << log.length() << ", " << cut.kept
                              << " kept: " << failure;
        }
        std::cout << "power cuts: " << count << ", failed: " << lost << '\n';
        EXPECT_EQ(lost, 0);
    }

    /// Every fourth comes right after something was confirmed.
    static DiskLog::Cut cutNumber(int number, const DiskLog& log, const std::vector<Confirmed>& confirmed)
    {
        std::minstd_rand random(static_cast<unsigned>(number) * 7919 + 1);
        DiskLog::Cut cut{random() % (log.length() + 1), static_cast<unsigned>(random()), 0};
        if (number % 4 == 0)
            cut.at = confirmed[random() % confirmed.size()].at;
        constexpr std::array shares{0.0, 0.5, 0.9, 1.0, 0.2};
        cut.kept = shares[random() % shares.size()];
        return cut;
    }

    [[nodiscard]] std::string remainders() const
    {
        if (!remaindersIn(root).empty() && m_next)
            m_next();
        const std::string left = remaindersIn(root);
        return left.empty() ? left : "stays behind:" + left;
    }

    std::string failureAfter(
        const DiskLog::Cut& cut, const DiskLog& log, const std::vector<Confirmed>& confirmed, const State& state) const
    {
        QDir(root).removeRecursively();
        QDir().mkdir(root);
        log.materialise(cut, root);
        const std::string found = state(root);
        const auto next =
            std::find_if(confirmed.begin(), confirmed.end(), [&](const Confirmed& step) { return step.at > cut.at; });
        const auto done = next - 1;
        if (found == done->state || (next != confirmed.end() && cut.at > done->at && found == next->state))
            return remainders();
        if (!isWhole(found))
            return found;
        const bool isKnown =
            std::any_of(confirmed.begin(), confirmed.end(), [&](const Confirmed& step) { return step.state == found; });
        return "step " + std::to_string(done - confirmed.begin()) + " was confirmed, found "
            + (isKnown ? "another step's state" : "something else");
    }
};

std::string bookBelow(const QString& folder)
{
    return storedBook(folder + "/book");
}

} // namespace

TEST_F(PowerCutTest, changesOfTheBook)
{
    KeyRing keys(bookPassword());
    Book open(BookFiles(book), keys, Connection::Access::ReadWrite);
    CashBook cashBook(open, byAll());
    UndoList undo(open, byAll());
    const QString longText(3000, u'ω');
    const qint64 code = listCodes(open.main(), CodeSelection::All).front().row;
    cutDuring(
        {
            [&] { (void)cashBook.insert(incomeOf(today, cents(5))); },
            [&] { (void)cashBook.insert(expenseOf(today.addDays(-2), cents(7), longText)); },
            [&] { (void)cashBook.modify(3, incomeOf(today, cents(4), longText)); },
            [&] { cashBook.close(today.addDays(-2)); },
            [&] { (void)cashBook.insert(incomeOf(today.addDays(-2), cents(3))); }, // seals it again
            [&] { (void)cashBook.remove(5); },
            [&] { undo.add(std::get<ChangedDay>(cashBook.insert(expenseOf(today.addDays(-2), cents(9)))).change); },
            [&] { EXPECT_EQ(undo.take(UndoStep::Undo).value().refusal, ""); }, // in the sealed day
            [&] { EXPECT_EQ(undo.take(UndoStep::Redo).value().refusal, ""); },
            [&] {
                Connection both = open.openBoth();
                addUser(both, byAll(), "Νίκος", "άλλος", {});
            },
            [&] {
                (void)modifyCode(open.main(), byAll(), code, {"101", "Νέα", {}}, 1);
            },
            [&] { (void)renameGroup(open.main(), byAll(), 1, "Έσοδα"); },
            [&] { (void)cashBook.insert(expenseOf(today.addDays(1), cents(5))); },
        },
        bookBelow, 36);
}

TEST_F(PowerCutTest, deletionInBothFiles)
{
    const Step deletion = [&] {
        KeyRing keys(bookPassword());
        (void)deleteAllData(BookFiles(book), keys, byAll());
    };
    cutDuring({deletion}, bookBelow, 14, deletion);
}

TEST_F(PowerCutTest, newBook)
{
    const QString user = "|--user|Άννα";
    QDir(book).removeRecursively();
    const QString create = "create|" + book + user;
    const auto createdNow = [&] { return runTool(today, create, user).status == ExitStatus::Done; };
    int takenBack = 0;
    cutDuring({[&] { EXPECT_TRUE(createdNow()); }}, bookBelow, 20, [&] {
        const BookFiles files(book);
        const bool isHalf = !QFile::exists(files.mainDatabase()) && QFile::exists(files.auxiliaryDatabase());
        takenBack += createdNow() && isHalf;
    });
    EXPECT_GT(takenBack, 0) << "files that were moved already stay in the way";
}

TEST_F(PowerCutTest, backupAndRestore)
{
    const QString backup = in("kept.tar");
    const auto state = [](const QString& folder) { return bookBelow(folder) + storedFile(folder + "/kept.tar"); };
    const auto done = [&](const QString& command) {
        return [=] {
            const ToolRun run = runTool(today, command);
            EXPECT_EQ(run.status, ExitStatus::Done) << run.errors;
        };
    };
    cutDuring({done(QString("backup|%1|%2").arg(book, backup)),
                  [&] {
                      Book open = openBookToWrite(book);
                      (void)CashBook(open, by()).insert(incomeOf(today, cents(1)));
                  },
                  done(QString("restore|%1|%2|--replace").arg(backup, book))},
        state, 16, [&] {
            UsageMarker::unlock(
                BookFiles(book).usageMarker()); // its claimant lives here: the power went in the log alone
            QFile::remove(backup); // it would not be replaced
            (void)runTool(today, QString("backup|%1|%2").arg(book, backup));
            (void)runTool(today, QString("restore|%1|%2|--replace").arg(backup, book));
        });
}

TEST_F(PowerCutTest, filesOfOurOwn)
{
    const PathFile pathFile(book);
    const SettingsStore settings(in("Lorvan/Lorvan.ini"));
    UsageMarker marker(BookFiles(book).usageMarker(), {"Άννα", "ταμείο"});
    const auto point = [&](const char* to) { return [&, to] { EXPECT_TRUE(pathFile.writeFolder(to)); }; };
    const auto set = [&](const char* value) { return [&, value] { settings.write({{"Χρώματα", "θέμα", value}}); }; };
    const Step claim = [&] { EXPECT_TRUE(marker.claim()); };
    const auto state = [](const QString& folder) {
        return storedFile(PathFile(folder + "/book").path()) + storedFile(folder + "/Lorvan/Lorvan.ini")
            + storedFile(folder + "/book/lorvan.dat");
    };
    cutDuring({point("/one"), set("1"), claim, point("/another"), set("2"), [&] { marker.release(); }, claim}, state,
        20, [&] {
            point("/one")();
            set("3")();
        });
}

} // namespace lorvan::test

#include "cashbook/late_sealing.h"

#include "cashbook/cash_book.h"
#include "marker/usage_marker.h"
#include "proof/trail_audit.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QThread>
#include <QTimer>

namespace lorvan::test {
namespace {

using namespace std::chrono_literals;

const MachineIdentity ours{"Μαρία", "ταμείο"};
const MachineIdentity theirs{"Ελένη", "γραφείο"};
const QDate monday(2024, 3, 11);

} // namespace

TEST(LateSealing, goesOnAsLongAsTheMarkerIsItsOwn)
{
    enum class Then { Nothing, Taken, Freed, Stopped };
    struct Case {
        const MachineIdentity* holder;
        LateSealing::Pace pace;
        Then then;
        int ended; ///< What is told in the end; -1 for nothing.
        const char* seals;
    };
    constexpr LateSealing::Pace slow{1, 400ms};
    for (const Case& each : {Case{&ours, {2, 1ms}, Then::Nothing, 4, "4"}, {&theirs, {2, 1ms}, Then::Nothing, 0, "0"},
             {nullptr, {2, 1ms}, Then::Nothing, 0, "0"}, {&ours, slow, Then::Taken, 1, "1"},
             {&ours, slow, Then::Freed, 1, "1"}, {&ours, slow, Then::Stopped, -1, "1"}}) {
        const TemporaryBook temporary;
        Book book = temporary.open();
        const Authority all = byAll();
        for (int day = 0; day < 4; ++day) {
            (void)CashBook(book, all).insert(incomeOf(monday.addDays(day), cents(100)));
            temporary.close(monday.addDays(day));
        }
        const QString path = temporary.files().usageMarker();
        const bool isHeld = each.holder && UsageMarker(path, *each.holder).claim();
        ASSERT_EQ(isHeld, each.holder != nullptr);

        LateSealing sealing(temporary.files(), testKeys(), fixedClock(), each.pace);
        int told = -1;
        QEventLoop loop;
        QObject::connect(&sealing, &LateSealing::ended, &loop, [&](int days) {
            told = days;
            loop.quit();
        });
        sealing.start(ours);
        if (each.then != Then::Nothing) {
            while (valueOf(book.auxiliary(), "SELECT count(*) FROM seals") == "0")
                QThread::msleep(5);
            if (each.then == Then::Stopped)
                sealing.stop();
            else
                UsageMarker::unlock(path);
            if (each.then == Then::Taken) {
                ASSERT_TRUE(UsageMarker(path, theirs).claim());
            }
        }
        QTimer::singleShot(each.ended < 0 ? 600ms : 10s, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_EQ(told, each.ended);
        EXPECT_EQ(valueOf(book.auxiliary(), "SELECT count(*) FROM seals WHERE late"), each.seals);
        Connection both = book.openBoth();
        EXPECT_TRUE(auditTrail(both).faults.empty());
    }
}

} // namespace lorvan::test

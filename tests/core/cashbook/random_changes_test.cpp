#include "book/schema_upgrade.h"
#include "cashbook/book_check.h"
#include "cashbook/book_repair.h"
#include "cashbook/cash_closing.h"
#include "cashbook/opening_balance.h"
#include "platform/date_text.h"
#include "support/opened_book.h"
#include "support/random_changes.h"
#include "support/temporary_book.h"

#include <QDir>

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace lorvan::test {
namespace {

constexpr auto noProgress = [](std::int64_t, std::int64_t) {};

/// One book and its model, to which the same is done.
class Doings {
public:
    explicit Doings(unsigned seed)
        : m_changes(seed)
        , m_random(seed)
    {
        m_open.main().execute("PRAGMA synchronous = OFF");
    }

    /// Changes and looks mostly; now and then a day is closed, the opening balance asked for, a damage repaired.
    void doSomething()
    {
        const auto drawn = m_random() % 500;
        if (drawn < 2)
            count();
        else if (drawn < 4)
            closeOne();
        else if (drawn < 12 && m_isCounted)
            repair();
        else if (drawn < 250)
            show();
        else
            change();
    }

    void compare()
    {
        ASSERT_EQ(storedCashDays(m_open.main()), m_model.cashDays());
        ASSERT_EQ(storedMovements(m_open.main()), m_model.movements());
    }

private:
    QDate someDay() { return QDate(2023, 12, 1).addDays(m_random() % 60); }

    void change()
    {
        const ModelChange change = m_changes.next(m_model.movements());
        const bool isOpen = !m_closed.contains(change.movement.day);
        const ChangeOutcome outcome = makeChange(m_cashBook, change);
        ASSERT_EQ(std::holds_alternative<DayView>(outcome), isOpen);
        if (isOpen)
            m_model.apply(change);
    }

    void show()
    {
        const QDate day = someDay();
        const auto row = m_random() % 2 == 0 ? DayRow::Write : DayRow::LeaveAlone;
        const DayView view = m_cashBook.showDay(day, row);
        ASSERT_EQ(view.figures.closingBalance, cents(m_model.balanceAtEndOf(storedDate(day))));
    }

    void closeOne()
    {
        const QDate day = someDay();
        closeDay(m_open.auxiliary(), day);
        m_closed.insert(storedDate(day));
    }

    void count()
    {
        const OpeningBalance counted{someDay(), cents(m_random() % 100'000)};
        m_open.main().execute("UPDATE taytothta SET ariumos=2");
        upgradeSchema(m_open.main(), counted, openingSteps());
        m_model.count(storedDate(counted.day), counted.amount.tenThousandths() / 100);
        m_isCounted = true;
    }

    /// What other programs may have made of the days, which know nothing of the opening balance.
    void damage()
    {
        static constexpr std::array damages{
            "UPDATE tameio SET esoda=?1, ejoda=-?1 WHERE hmeromhnia=?2",
            "UPDATE tameio SET ypoloipo=ypoloipo-?1 WHERE hmeromhnia>=?2",
            "UPDATE tameio SET ypoloipo='?'||?1 WHERE hmeromhnia=?2",
            "DELETE FROM tameio WHERE hmeromhnia>?2 AND ?1<>0 AND hmeromhnia IN (SELECT hmeromhnia FROM kinhseis)",
            "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) SELECT hmeromhnia, ?1, 0, ?1 FROM tameio"
            " WHERE hmeromhnia>?2",
        };
        for (auto times = m_random() % 5 + 1; times > 0; --times) {
            auto statement = m_open.main().prepare(damages.at(m_random() % damages.size()));
            statement.bind(m_random() % 2'000'000, someDay()).run();
        }
    }

    void repair()
    {
        damage();
        OpenedBook book(m_folder.folder(), Connection::Access::ReadWrite);
        (void)repairBook(book.connection(), book.files(), book.keys(), fixedClock().now(), noProgress);
        ASSERT_TRUE(checkContent(book.connection(), noProgress).findings.isInOrder());
        QDir copies(m_folder.folder(), QStringLiteral("*-2024-*"));
        for (const QString& copy : copies.entryList())
            copies.remove(copy);
    }

    const TemporaryBook m_folder;
    Book m_open = m_folder.open();
    CashBook m_cashBook{m_open, {}};
    BookModel m_model;
    RandomChanges m_changes;
    std::mt19937 m_random;
    std::set<int> m_closed;
    bool m_isCounted = false;
};

} // namespace

TEST(CashBookProperty, everyCashDayEqualsTheModelWhateverIsDoneInWhateverOrder)
{
    for (const unsigned seed : {20240315U, 19U, 500U}) {
        Doings doings(seed);
        for (int i = 0; i < 1000; ++i) {
            doings.doSomething();
            doings.compare();
            ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << ", step " << i;
        }
    }
}

} // namespace lorvan::test

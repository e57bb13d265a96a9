#include "support/random_changes.h"

#include "book/opened_book.h"
#include "book/schema_upgrade.h"
#include "cashbook/movement_batch.h"
#include "cashbook/undo_list.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"
#include "proof/book_check.h"
#include "proof/book_repair.h"
#include "proof/opening_balance.h"
#include "support/temporary_book.h"

#include <QFile>

#include <array>
#include <gtest/gtest.h>
#include <random>

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

    /// Mostly changes and looks; now and then an opening balance, a repair of damage, many movements at once, or a run
    /// of undos and redos.
    void doSomething()
    {
        const auto drawn = m_random() % 500;
        if (drawn < 2)
            count();
        else if (drawn < 12 && m_isCounted)
            repair();
        else if (drawn < 16)
            enterMany();
        else if (drawn < 100)
            show();
        else if (drawn < 160)
            undoAndRedo();
        else
            change();
    }

    void compare()
    {
        ASSERT_EQ(storedCashDays(m_open.main()), m_model.cashDays());
        ASSERT_EQ(storedMovements(m_open.main()), m_model.movements());
    }

private:
    struct States {
        std::int64_t key;
        std::optional<ModelMovement> before;
        std::optional<ModelMovement> after;
    };

    QDate someDay() { return QDate(2023, 12, 1).addDays(m_random() % 60); }

    void change()
    {
        const ModelChange change = m_changes.next(m_model.movements());
        const ChangeOutcome outcome = makeChange(m_cashBook, change);
        ASSERT_TRUE(std::holds_alternative<ChangedDay>(outcome));
        const bool isListed = m_undoList.add(std::get<ChangedDay>(outcome).change);
        const auto before = m_model.find(change.movement.key);
        m_model.apply(change);
        const auto key = before ? before->key : m_model.lastKey();
        ASSERT_EQ(isListed, before != m_model.find(key));
        if (!isListed)
            return;
        m_done.push_back({key, before, m_model.find(key)});
        if (m_done.size() > UndoList::depth)
            m_done.erase(m_done.begin());
        m_undone.clear();
    }

    void undoAndRedo()
    {
        for (auto times = m_random() % 8; times > 0; --times)
            take(UndoStep::Undo, m_done, m_undone);
        for (auto times = m_random() % 8; times > 0; --times)
            take(UndoStep::Redo, m_undone, m_done);
    }

    void take(UndoStep step, std::vector<States>& from, std::vector<States>& to)
    {
        const auto result = m_undoList.take(step);
        ASSERT_EQ(result.has_value(), !from.empty());
        if (!result)
            return;
        ASSERT_EQ(result->refusal, "");
        const auto [key, before, after] = from.back();
        m_model.put(key, step == UndoStep::Undo ? before : after);
        to.push_back(from.back());
        from.pop_back();
        compare();
    }

    void enterMany()
    {
        Transaction writing(m_open.main(), byAll());
        MovementBatch batch(m_open.main(), m_open.auxiliary(), by());
        for (int i = 0; i < 15; ++i) {
            const ModelChange change = m_changes.next({});
            ASSERT_FALSE(batch.add(draftOf(change.movement)));
            m_model.apply(change);
        }
        (void)batch.settle();
        writing.commit();
    }

    void show()
    {
        const QDate day = someDay();
        const auto row = m_random() % 2 == 0 ? DayRow::Write : DayRow::LeaveAlone;
        const DayView view = m_cashBook.showDay(day, row);
        ASSERT_EQ(view.figures.closingBalance, cents(m_model.balanceAtEndOf(storedDate(day))));
    }

    void count()
    {
        const OpeningBalance counted{someDay(), cents(m_random() % 100'000)};
        m_open.main().execute("UPDATE taytothta SET ariumos=2");
        upgradeSchema(m_open.main(), m_open.auxiliary(), byAll(), counted, openingSteps());
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
        (void)repairBook(book.connection(), book.files(), book.keys(), byAll(), noProgress);
        ASSERT_TRUE(checkContent(book.connection(), noProgress).findings.isInOrder());
        for (const char* copy : {"lorvan-2024-03-15-120000.mdb", "mapcodes-2024-03-15-120000.mdb"})
            QFile::remove(m_folder.path(copy));
    }

    const TemporaryBook m_folder;
    Book m_open = m_folder.open();
    CashBook m_cashBook{m_open, by()};
    UndoList m_undoList{m_open, by()};
    std::vector<States> m_done;
    std::vector<States> m_undone;
    BookModel m_model;
    RandomChanges m_changes;
    std::mt19937 m_random;
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

#include "cashbook/undo_list.h"

#include "cashbook/day_seal.h"
#include "proof/trail_audit.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

const QDate monday(2024, 3, 11);
const QDate friday(2024, 3, 15);

/// Three movements, keys 1 to 3, the first two with code 100 in group 1; undone by somebody who may not change closed
/// days.
struct UndoListTest : testing::Test {
    UndoListTest()
    {
        open.main().execute("PRAGMA synchronous = OFF");
        book.addGroup(7, "ΈΞΟΔΑ");
        for (const auto& draft :
            {incomeOf(monday, cents(100)), incomeOf(friday, cents(200)), expenseOf(friday, cents(21'467), " ΔΕΗ ")})
            (void)cashBook.insert(draft);
    }

    void add(const ChangeOutcome& outcome) { list.add(std::get<ChangedDay>(outcome).change); }
    bool modify(const CodeEntry& entry, qint32 group)
    {
        const qint64 row = findCode(open.main(), 100, CodeSelection::All)->row;
        return list.add(std::get<CodeChange>(modifyCode(open.main(), byAll(), row, entry, group)));
    }
    void insert() { add(cashBook.insert(expenseOf(friday, cents(5), "ΟΤΕ"))); }
    void change() { add(cashBook.modify(3, incomeOf(monday, cents(7), "ΕΥΔΑΠ"))); }
    void remove() { add(cashBook.remove(2)); }
    void rename() { list.add(std::get<GroupChange>(renameGroup(open.main(), byAll(), 1, "Άλλη"))); }
    void regroup() { (void)modify({"100", "ΛΙΑΝΙΚΗ", "ΈΞΟΔΑ", true}, 7); }
    void renumber() { (void)modify({"101", "ΛΙΑΝΙΚΗ", "ΈΞΟΔΑ", true}, 7); }

    [[nodiscard]] QString refusalOf(UndoStep step) { return list.take(step).value().refusal; }

    /// All that a change can touch.
    [[nodiscard]] QString state()
    {
        static constexpr auto tables = {
            "SELECT group_concat(aa||'|'||kvdikos||'|'||hmeromhnia||'|'||perigrafh||'|'||esoda||'|'||ejoda||'|'"
            "||aa_omada||'|'||grammh||'|'||epitagh||'|'||L_tajeos, '/') FROM (SELECT * FROM kinhseis ORDER BY aa)",
            "SELECT group_concat(hmeromhnia||'|'||esoda||'|'||ejoda||'|'||ypoloipo, '/') FROM tameio",
            "SELECT group_concat(kvdikos||'|'||perigrafh||'|'||lista||'|'||aa_omadas||'|'||esodo||'|'||energos||'|'"
            "||ifnull(omada, '-'), '/') FROM kvdikoi",
            "SELECT group_concat(aa||'|'||perigrafh, '/') FROM omades"};
        QString all;
        for (const char* const table : tables)
            all += valueOf(open.main(), table) + u'\n';
        return all;
    }

    const TemporaryBook book;
    Book open = book.open();
    CashBook cashBook{open, by()};
    UndoList list{open, by({false, false, true})};
};

using Step = void (UndoListTest::*)();

} // namespace

TEST_F(UndoListTest, everyKindOfChangeIsTakenBackAndMadeAgainToTheLastColumn)
{
    struct {
        Step change;
        const char* name;
        const char* subject;
    } const cases[] = {{&UndoListTest::insert, "εισαγωγή ΟΤΕ 0,05", "movement/4"},
        {&UndoListTest::change, "μεταβολή ΕΥΔΑΠ 0,07", "movement/3"},
        {&UndoListTest::remove, "διαγραφή είσπραξη 2,00", "movement/2"},
        {&UndoListTest::rename, "μετονομασία ομάδας Πωλήσεις σε Άλλη", "group/1"},
        {&UndoListTest::regroup, "μεταβολή κωδικού 100 ΛΙΑΝΙΚΗ", "code/1"},
        {&UndoListTest::renumber, "μεταβολή κωδικού 101 ΛΙΑΝΙΚΗ", "code/1"}};
    std::vector<QString> states{state()};
    for (const auto& [change, name, subject] : cases) {
        (this->*change)();
        states.push_back(state());
        EXPECT_EQ(changeText(*list.next(UndoStep::Undo)), name);
    }
    const auto lastRow = [this](const char* columns) {
        return valueOf(open.main(), "SELECT " + std::string(columns) + " FROM journal ORDER BY id DESC LIMIT 1");
    };
    for (std::size_t i = std::size(cases); i > 0; --i) {
        EXPECT_EQ(refusalOf(UndoStep::Undo), "") << cases[i - 1].name;
        EXPECT_EQ(state(), states[i - 1]) << cases[i - 1].name;
        EXPECT_EQ(lastRow("action||' '||subject"), QString("undo ") + cases[i - 1].subject);
    }
    EXPECT_EQ(lastRow("ifnull(after, '-')"), "-") << "the inserted movement";
    EXPECT_FALSE(list.take(UndoStep::Undo));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(refusalOf(UndoStep::Redo), "") << cases[i].name;
        EXPECT_EQ(state(), states[i + 1]) << cases[i].name;
        EXPECT_EQ(lastRow("action||' '||subject"), QString("redo ") + cases[i].subject);
    }
    ASSERT_EQ(refusalOf(UndoStep::Undo), "");
    insert();
    EXPECT_FALSE(list.take(UndoStep::Redo)) << "a new change has come between";
}

TEST_F(UndoListTest, aSealedDayIsSealedAgainWithEachStep)
{
    const Authority who = byAll();
    CashBook all(open, who);
    UndoList mine(open, who);
    all.close(monday);
    mine.add(std::get<ChangedDay>(all.modify(1, incomeOf(monday, cents(7)))).change);
    const auto lastSeal = [this] { return lastSealOf(open.auxiliary(), monday).value(); };
    const QString changed = lastSeal().content;
    for (std::int64_t version = 3; version < 6; ++version) {
        const bool isUndo = version % 2 != 0;
        EXPECT_EQ(mine.take(isUndo ? UndoStep::Undo : UndoStep::Redo).value().refusal, "");
        EXPECT_EQ(lastSeal().version, version);
        EXPECT_EQ(lastSeal().content == changed, !isUndo);
    }
    Connection both = open.openBoth();
    EXPECT_TRUE(auditTrail(both).findings().isInOrder());
}

TEST_F(UndoListTest, whatIsNoLongerAsTheSessionLeftItStaysAndIsSaid)
{
    struct {
        Step change;
        const char* meanwhile; ///< Done by another program.
        const char* refusal;
        const char* restored; ///< After which the undo succeeds.
    } const cases[] = {{&UndoListTest::insert, "UPDATE kinhseis SET ejoda=ejoda+1 WHERE aa>3",
                           "Η κίνηση έχει αλλάξει στο μεταξύ.", "UPDATE kinhseis SET ejoda=ejoda-1 WHERE aa>3"},
        {&UndoListTest::change, "UPDATE kinhseis SET aa=-aa WHERE aa=3", "Η κίνηση έχει διαγραφεί στο μεταξύ.",
            "UPDATE kinhseis SET aa=-aa WHERE aa=-3"},
        {&UndoListTest::remove, "UPDATE kinhseis SET aa=2 WHERE aa=1", "Η κίνηση έχει αλλάξει στο μεταξύ.",
            "UPDATE kinhseis SET aa=1 WHERE aa=2"},
        {&UndoListTest::remove, "UPDATE kvdikoi SET kvdikos=-100 WHERE kvdikos=100",
            "Ο κωδικός της κίνησης έχει διαγραφεί στο μεταξύ.", "UPDATE kvdikoi SET kvdikos=100 WHERE kvdikos=-100"},
        {&UndoListTest::rename, "UPDATE omades SET perigrafh='Τρίτη' WHERE aa=1", "Η ομάδα έχει αλλάξει στο μεταξύ.",
            "UPDATE omades SET perigrafh='Άλλη' WHERE aa=1"},
        {&UndoListTest::rename, "UPDATE omades SET aa=-1 WHERE aa=1", "Η ομάδα έχει διαγραφεί στο μεταξύ.",
            "UPDATE omades SET aa=1 WHERE aa=-1"},
        {&UndoListTest::regroup, "UPDATE kvdikoi SET aa=-1 WHERE aa=1", "Ο κωδικός έχει διαγραφεί στο μεταξύ.",
            "UPDATE kvdikoi SET aa=1 WHERE aa=-1"},
        {&UndoListTest::regroup, "UPDATE kvdikoi SET energos=0 WHERE aa=1", "Ο κωδικός έχει αλλάξει στο μεταξύ.",
            "UPDATE kvdikoi SET energos=-1 WHERE aa=1"},
        {&UndoListTest::regroup, "UPDATE kinhseis SET aa_omada=2 WHERE aa=1",
            "Οι κινήσεις του κωδικού έχουν αλλάξει στο μεταξύ.", "UPDATE kinhseis SET aa_omada=7 WHERE aa=1"},
        {&UndoListTest::regroup, "UPDATE kinhseis SET kvdikos=100, aa_omada=7 WHERE aa=3",
            "Οι κινήσεις του κωδικού έχουν αλλάξει στο μεταξύ.", "UPDATE kinhseis SET kvdikos=200 WHERE aa=3"},
        {&UndoListTest::regroup, "UPDATE omades SET aa=-1 WHERE aa=1",
            "Η ομάδα όπου θα πήγαινε ο κωδικός έχει αλλάξει στο μεταξύ.", "UPDATE omades SET aa=1 WHERE aa=-1"},
        {&UndoListTest::renumber, "UPDATE kvdikoi SET kvdikos=100 WHERE aa=2",
            "Τον αριθμό του έχει πάρει στο μεταξύ άλλος κωδικός.", "UPDATE kvdikoi SET kvdikos=200 WHERE aa=2"}};
    for (const auto& [change, meanwhile, refusal, restored] : cases) {
        (this->*change)();
        book.execute(meanwhile);
        const QString before = state();
        EXPECT_EQ(refusalOf(UndoStep::Undo), refusal) << meanwhile;
        EXPECT_EQ(state(), before) << meanwhile;
        book.execute(restored);
        EXPECT_EQ(refusalOf(UndoStep::Undo), "") << restored;
    }
    change();
    book.close(friday);
    EXPECT_TRUE(refusalOf(UndoStep::Undo).startsWith("Το ταμείο της ημέρας έχει κλείσει"));
    book.execute("INSERT INTO journal (id, action) SELECT max(id)+1, 'clear' FROM journal");
    EXPECT_TRUE(refusalOf(UndoStep::Undo).startsWith("Στο μεταξύ διαγράφηκαν"));
    EXPECT_FALSE(list.take(UndoStep::Undo)) << "nothing of the former book is left to be undone";
}

TEST_F(UndoListTest, onlyWhatCanBeTakenBackExactlyIsTakenUp)
{
    book.execute("UPDATE kinhseis SET aa_omada=0 WHERE aa=1");
    EXPECT_FALSE(modify({"100", "ΛΙΑΝΙΚΗ", "ΈΞΟΔΑ", true}, 7)) << "movements of two groups";
    EXPECT_TRUE(modify({"100", "ΛΙΑΝΙΚΗ", "", true}, 0)) << "by now they have one";
    EXPECT_FALSE(list.add(GroupChange{{1, "Α"}, {1, "Α"}}));
    for (std::size_t i = 0; i < UndoList::depth; ++i)
        insert();
    int undone = 0;
    while (list.take(UndoStep::Undo))
        ++undone;
    EXPECT_EQ(undone, UndoList::depth) << "the modification was too long ago";
}

} // namespace lorvan::test

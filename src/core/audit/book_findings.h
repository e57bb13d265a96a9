#pragma once

#include "movements/cash_day.h"

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

namespace lorvan {

/// What a check of a book can find. A movement or day "without a date" has a date column that is not a calendar date,
/// whether NULL or another number.
///
/// A finding is something that no use of the program leaves behind and that falsifies a figure or hides a row. A notice
/// is something that normal use leaves behind: a code may get another number, or a group may be deleted, while
/// movements keep what they were saved with.
enum class FindingKind {
    FileDamaged, ///< The engine's own integrity check complains. `text` is its message.
    /// A table of the book is not a table, lacks something, or has an index on an expression: `text`.
    SchemaUnreadable,
    ForeignObject, ///< A trigger, a view or a virtual table that is not part of the book, named in `text`.
    VersionRows, ///< taytothta has several rows; which one is used is arbitrary.
    SumTooLarge, ///< The sums of the movements are out of range: cash days cannot be checked.
    MovementWithoutDate, ///< It is shown on no day and counts in no balance.
    MovementAmount, ///< An amount is not an integer: a text is read as 0, a fraction is truncated.
    MovementBothSides, ///< Income and expense in one movement; the program never stores one.
    DayWithoutDate,
    RepeatedDay, ///< Several rows with one date; the program reads the last of them.
    MissingDay, ///< There are movements, but no row.
    DaySums, ///< Income or expense differ from the sum of the movements.
    DayBalance, ///< Differs from the previous balance plus the day's movements.
    ClosedDayWithoutDate, ///< Somebody has closed a day, but it is still open.
    CodeWithoutNumber,
    UserWithoutName, ///< Can sign in with an empty name.
    /// A row of the journal, `key`, was changed, or rows before it are missing; from it on `rows` do not fit.
    JournalBroken,
    SealBroken, ///< The same of a seal; `day` is its day.
    SealWithoutJournal, ///< The journal has lost the row that a seal, `key`, names.
    SealMissing, ///< The journal tells of a seal of a day, of version `key`, that is not there.
    SealedDayAltered, ///< A sealed day does not hold, or was once seen not to hold, what was sealed.
    /// What is carried into a sealed day has moved by `stored.closingBalance`, and no change explains that; so it is
    /// with `rows` sealed days in all, of which this is the first.
    CarryAltered,
    OpeningAltered, ///< An opening difference is not as the journal says.
    CountAltered, ///< The cash counted on a day is not what the journal says.
    MovementAltered, ///< A movement is not as the journal says; `day` is 0 if it is gone.
    CodeAltered, ///< A code, `key` is its row.
    GroupAltered,

    OpeningBalance, ///< A day from which on the balances include a recorded opening difference.
    OpeningNotKept, ///< The same, but only the balances show it: repairBook() records it.
    MovementNullAmount, ///< Read as 0 everywhere.
    MovementUnknownCode, ///< One finding per code: `key` is the code, `rows` the number of its movements.
    MovementGroup, ///< One finding per code, as above: movements whose group differs from their code's.
    RepeatedCode, ///< Several rows with the same code number.
    CodeUnknownGroup,
    CodeGroupName, ///< The copy of the group's name differs from its name.
    RepeatedClosedDay,
    RepeatedUser,
    OtherObject, ///< A table, column or index added by another program, named in `text`.
    CarryMoved, ///< A sealed day's carried balance is not the printed one: an earlier day was changed.
    AcceptedFaults, ///< So many, `rows`, were accepted earlier.
    ReadableByOthers, ///< A database that every account on the machine may read; `text` is its path.
};

[[nodiscard]] bool isNotice(FindingKind kind);

/// True for faults with only one correct repair, which repairBook() makes.
[[nodiscard]] bool isRepairable(FindingKind kind);

/// One finding. Which members are filled depends on its kind.
struct Finding {
    FindingKind kind;
    std::int64_t key = 0; ///< The row's aa, or the code.
    std::int64_t day = 0; ///< As stored; not always a date.
    std::int64_t rows = 0;
    CashDayFigures stored = {};
    /// The stored value is a text or a fraction; `stored` holds the number that it is read as.
    bool isNoAmount = false;
    /// What the movements give. For an opening balance: only the amount by which the balances exceed the movements from
    /// that day on, as closing balance.
    CashDayFigures expected = {};
    QString text = {};
};

/// All findings: for each kind the first ones, and the total count.
class BookFindings {
public:
    static constexpr std::size_t listed = 1'000;

    struct List {
        std::vector<Finding> first;
        std::int64_t count = 0;
    };

    void add(Finding finding);
    void merge(const BookFindings& other);

    /// Contains no empty lists.
    [[nodiscard]] const std::map<FindingKind, List>& byKind() const { return m_lists; }
    [[nodiscard]] std::int64_t count(FindingKind kind) const;
    [[nodiscard]] bool isInOrder() const; ///< True if there are only notices.
    [[nodiscard]] bool anythingRepairable() const;

private:
    std::map<FindingKind, List> m_lists;
};

} // namespace lorvan

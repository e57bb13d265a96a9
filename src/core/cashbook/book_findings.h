#pragma once

#include "cashbook/cash_day.h"

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

namespace lorvan {

/// What a check of a book can find. A movement or day "without a date" holds no calendar date; NULL and other numbers
/// count alike.
///
/// A finding is what no use of the program leaves behind, and what falsifies a figure or keeps a row from being seen.
/// A notice is what honest use leaves behind: a code may be given another number, and a group be deleted, while
/// movements keep what they were saved with.
enum class FindingKind {
    FileDamaged, ///< The engine's own integrity check complains. `text` is its complaint.
    SchemaUnreadable, ///< A table of the book is none, or lacks something, or is read through an expression: `text`.
    ForeignObject, ///< A trigger, a view or a virtual table beside the book's tables, named in `text`.
    VersionRows, ///< taytothta has several rows; which one counts is chance.
    SumTooLarge, ///< The sums of the movements leave the range of amounts: cash days cannot be checked.
    MovementWithoutDate, ///< It stands on no page and in no balance.
    MovementAmount, ///< An amount that is no whole number: a text reads as 0, a fraction is cut off.
    MovementBothSides, ///< Income and expense in one movement; the entry never makes one.
    DayWithoutDate,
    RepeatedDay, ///< Several rows of one date; the program reads the last of them.
    MissingDay, ///< Movements, but no row.
    DaySums, ///< Income or expense differ from the movements'.
    DayBalance, ///< Differs from the balance before it, with the day's movements.
    ClosedDayWithoutDate, ///< Somebody has closed a day, and it is open.
    CodeWithoutNumber,
    UserWithoutName, ///< Signs in with an empty name.

    OpeningBalance, ///< A day from which on the balances hold a kept opening difference beyond the movements.
    OpeningNotKept, ///< The same, where only the balances show it: repairBook() keeps it.
    MovementNullAmount, ///< Reads as 0 everywhere.
    MovementUnknownCode, ///< By code: `key` is the code, `rows` its movements.
    MovementGroup, ///< By code, likewise: movements of another group than their code's.
    RepeatedCode, ///< Several rows of one code number.
    CodeUnknownGroup,
    CodeGroupName, ///< The copy of the group's name differs from the name.
    RepeatedClosedDay,
    RepeatedUser,
    OtherObject, ///< A table, column or index of another program, named in `text`.
    ReadableByOthers, ///< A database that every account of the machine may read; `text` is its path.
};

[[nodiscard]] bool isNotice(FindingKind kind);

/// True for what has one right answer, which repairBook() writes.
[[nodiscard]] bool isRepairable(FindingKind kind);

/// One thing that was found. Which members are filled depends on its kind.
struct Finding {
    FindingKind kind;
    std::int64_t key = 0; ///< The row's aa, or the code.
    std::int64_t day = 0; ///< As stored; not always a date.
    std::int64_t rows = 0;
    CashDayFigures stored = {};
    bool isNoAmount =
        false; ///< What is stored is a text or a fraction, of which `stored` holds the number it reads as.
    CashDayFigures expected = {}; ///< What the movements say. Of an opening balance only by how much the balances go
                                  ///< beyond the movements from the day on, as its balance.
    QString text = {};
};

/// All that was found: of each kind the first ones and the count of all.
class BookFindings {
public:
    static constexpr std::size_t listed = 20;

    struct List {
        std::vector<Finding> first;
        std::int64_t count = 0;
    };

    void add(Finding finding);
    void merge(const BookFindings& other);

    [[nodiscard]] const std::map<FindingKind, List>& byKind() const { return m_lists; } ///< Without empty lists.
    [[nodiscard]] std::int64_t count(FindingKind kind) const;
    [[nodiscard]] bool isInOrder() const; ///< Nothing but notices.
    [[nodiscard]] bool anythingRepairable() const;

private:
    std::map<FindingKind, List> m_lists;
};

} // namespace lorvan

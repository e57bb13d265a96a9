#pragma once

#include "cashbook/day_view.h"
#include "cashbook/movement_check.h"
#include "users/sign_in.h"

#include <optional>
#include <variant>

namespace lorvan {

class Book;

/// A changed day, or the reason why nothing was changed.
using ChangeOutcome = std::variant<DayView, Refusal>;

enum class DayRow { Write, LeaveAlone };

/// The rules of entering, changing and removing movements.
///
/// A change is one transaction: the movement's row, the rebuilt row of its day, the shift of every later day's
/// balance. Closed days are checked inside it. All operations throw SqlError when a file cannot be read or written and
/// CurrencyOverflow when a sum leaves its range; the book is then as it was.
class CashBook {
public:
    CashBook(Book& book, Rights rights);

    /// The day as it stands. With DayRow::Write the row of a day that has movements is brought in line with them, in
    /// one transaction and only if it differs; later days are not shifted. A read-only book stays as it is.
    [[nodiscard]] DayView showDay(QDate day, DayRow row);

    /// For a day that was read with DayRow::LeaveAlone and shown: as DayRow::Write, at the cost of one look-up where
    /// the row is right already.
    void bringInLine(const DayView& shown);

    [[nodiscard]] bool isDayClosed(QDate day);

    /// True when the day is open or the user may change closed days.
    [[nodiscard]] bool mayChange(QDate day);

    /// The checks of a movement's content, in their order: date, code, code still active, description. insert() and
    /// modify() make them too; this is for asking before a question is put to the user.
    [[nodiscard]] std::optional<Refusal> check(const MovementDraft& draft);

    /// Adds the movement to its day. The description is stored trimmed, the group number is the code's.
    [[nodiscard]] ChangeOutcome insert(const MovementDraft& draft);

    /// Overwrites a movement; it keeps its key and its day. What later days gained from it before is taken from its
    /// stored row.
    [[nodiscard]] ChangeOutcome modify(qint64 key, const MovementDraft& draft);

    /// Removes a movement. A day that loses its last one keeps its row, with zero totals and the carried balance.
    [[nodiscard]] ChangeOutcome remove(qint64 key);

    /// The stored movement with that key, if it is still there.
    [[nodiscard]] std::optional<Movement> find(qint64 key);

private:
    /// The draft's code, if the draft may be stored.
    [[nodiscard]] std::variant<MovementCode, Refusal> checkActive(const MovementDraft& draft);
    /// The stored movement, if it may be changed or removed.
    [[nodiscard]] std::variant<Movement, Refusal> changeable(qint64 key);

    Book& m_book;
    Rights m_rights;
};

} // namespace lorvan

#pragma once

#include "cashbook/cash_closing.h"
#include "cashbook/counted_cash.h"
#include "cashbook/day_seal.h"
#include "movements/day_view.h"
#include "movements/movement_validation.h"
#include "platform/authority.h"

#include <functional>
#include <optional>
#include <variant>

namespace lorvan {

class Book;
class Connection;
enum class JournalAction;

/// A day after a change of its movements.
struct ChangedDay {
    DayView view;
    bool isClosed = false; ///< Changed nevertheless, by a user who may.
    MovementChange change; ///< As stored.
};

/// The changed day, or the reason why nothing was changed.
using ChangeOutcome = std::variant<ChangedDay, MovementRefusal>;

enum class DayRow { Write, LeaveAlone };

/// A cash day whose row did not match its movements.
struct DayCorrection {
    QDate day;
    std::optional<CashDayFigures> former; ///< No value if the row was missing.
    CashDayFigures corrected;
};

/// The rules for adding, changing and deleting movements.
///
/// A change is one transaction: the movement's row, the recalculated row of its day, the shift of the balances of all
/// later days, and the row in the journal. Closed days are checked inside it. All operations throw SqlError if a file
/// cannot be read or written and CurrencyOverflow if a sum is out of range; the book is then unchanged.
class CashBook {
public:
    CashBook(Book& book, Authority authority);

    /// Reads a day. With DayRow::Write, the row of a day with movements is corrected to match them, in one transaction
    /// and only if it differs; later days are not shifted. A read-only book is not changed.
    [[nodiscard]] DayView showDay(QDate day, DayRow row);

    /// For a day that was read with DayRow::LeaveAlone and shown: does what DayRow::Write does, with a single look-up
    /// if the row is already correct. Returns what was corrected.
    std::optional<DayCorrection> bringInLine(const DayView& shown);

    [[nodiscard]] bool isDayClosed(QDate day);

    /// True if the day is open or the user may change closed days.
    [[nodiscard]] bool mayChange(QDate day);

    /// Checks the content of a movement, in this order: date, code, code still active, description. insert() and
    /// modify() check it too; this is for use before the user is asked for confirmation.
    [[nodiscard]] std::optional<MovementRefusal> refusalOf(const MovementDraft& draft);

    /// Adds the movement to its day. The description is stored trimmed; the group number is that of the code.
    [[nodiscard]] ChangeOutcome insert(const MovementDraft& draft);

    /// Overwrites a movement, which keeps its key and its day. Its previous amount, which later balances contain, is
    /// taken from the stored row.
    [[nodiscard]] ChangeOutcome modify(qint64 key, const MovementDraft& draft);

    /// Deletes a movement. A day without movements left keeps its row, with zero totals and the carried balance.
    [[nodiscard]] ChangeOutcome remove(qint64 key);

    /// Makes a change that was made before, or the reverse of one, as an undo or a redo: a movement that comes back has
    /// its old key, and its code's present group number. Refused if the movement is not in the state that the change
    /// begins with, or its code no longer exists.
    [[nodiscard]] ChangeOutcome repeat(const MovementChange& change, JournalAction action);

    /// Closes the day's cash; returns no value if it was closed already. Where the main database cannot be written, the
    /// journal records it when it is found, and there is no seal yet. Throws NotPermitted without the right to close.
    std::optional<ClosedDay> close(QDate day);

    /// Stores what was counted at the end of the day, see keepCountedCash().
    bool keepCount(QDate day, const CountedCash& counted);

    /// The day's last seal.
    [[nodiscard]] std::optional<DaySeal> sealOf(QDate day);

    /// The stored movement with that key, if it still exists.
    [[nodiscard]] std::optional<Movement> find(qint64 key);

private:
    ChangedDay store(Connection& main, JournalAction action, MovementChange change, qint32 group, bool isClosed) const;
    /// Reads the day again and corrects its row, in one transaction.
    std::optional<DayCorrection> correct(DayView& view);
    /// The draft's code, if the draft may be stored.
    [[nodiscard]] std::variant<MovementCode, MovementRefusal> validateActive(const MovementDraft& draft);
    using Change = std::function<ChangeOutcome(Connection& main)>;
    /// Runs `change` in one transaction, which is committed if it succeeds. A day that was sealed is sealed again.
    ChangeOutcome changeDay(QDate day, const Change& change);
    std::optional<ChangeOutcome> changeUnsealed(QDate day, const Change& change);
    ChangeOutcome changeSealed(QDate day, const Change& change);
    /// The same for a stored movement that may be changed.
    ChangeOutcome changeStored(qint64 key,
        const std::function<ChangeOutcome(Connection& main, const Movement& stored, bool isClosed)>& change);
    /// Whether the day is closed, if it may be changed.
    [[nodiscard]] std::variant<bool, MovementRefusal> closedState(QDate day);

    Book& m_book;
    Authority m_authority;
};

} // namespace lorvan

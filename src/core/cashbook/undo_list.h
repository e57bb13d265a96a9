#pragma once

#include "cashbook/cash_book.h"
#include "movements/stored_change.h"

#include <optional>
#include <vector>

namespace lorvan {

enum class UndoStep { Undo, Redo };

/// What came of an undo or a redo.
struct UndoResult {
    StoredChange change; ///< The change that was to be taken back or made again, as it was first made.
    std::optional<ChangedDay> day; ///< If it was about a movement, the day afterwards.
    QString refusal; ///< Why nothing was changed; the change then stays next in the list. Empty if it was done.
};

/// The changes of a session, so that the last ones can be taken back and made again in their order.
///
/// Each is undone and redone like any change, in one transaction with all its checks, and only as long as the rows are
/// exactly what this session left: see CashBook::repeat(), repeatRenaming() and repeatModification().
class UndoList {
public:
    static constexpr std::size_t depth = 100; ///< Older changes are forgotten.

    /// The book must outlive the list.
    UndoList(Book& book, Authority authority);

    /// To be called when a change was stored. Nothing can be redone any more. A change that cannot be taken back is not
    /// taken up. Returns true if it was. Throws SqlError.
    bool add(const StoredChange& change);

    /// The change that would be undone or redone next; null if there is none.
    [[nodiscard]] const StoredChange* next(UndoStep step) const;

    /// Undoes or redoes that change; no value if there is none. If the book was cleared or something was imported in
    /// the meantime, the list is emptied, and the result says so. Throws what the change itself throws, and the list
    /// stays as it was.
    std::optional<UndoResult> take(UndoStep step);

private:
    void move(UndoStep step);
    [[nodiscard]] UndoResult forgetAll(StoredChange change);

    Book& m_book;
    Authority m_authority;
    std::vector<StoredChange> m_done; ///< The last one is undone first.
    std::vector<StoredChange> m_undone; ///< The last one is redone first.
    std::int64_t m_since = 0; ///< The journal's last row when the list began.
};

} // namespace lorvan

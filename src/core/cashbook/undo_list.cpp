#include "cashbook/undo_list.h"

#include "book/book.h"
#include "journal/journal.h"

#include <utility>

namespace lorvan {
namespace {

std::int64_t lastRow(Connection& main)
{
    if (!keepsJournal(main))
        return 0;
    auto last = main.prepare("SELECT max(id) FROM main.journal");
    return last.step() ? last.integer(0) : 0;
}

/// Whether the book was exchanged, cleared or filled from files after that row.
bool wasOverrun(Connection& main, std::int64_t id)
{
    if (!keepsJournal(main))
        return false;
    auto row = main.prepare("SELECT 1 FROM main.journal WHERE id>? AND action IN (?,?,?) LIMIT 1");
    row.bind(
        id, journalWord(JournalAction::Import), journalWord(JournalAction::Restore), journalWord(JournalAction::Clear));
    return row.step();
}

/// Makes a change with the function of core that fits it.
class Repeating {
public:
    Repeating(Book& book, const Authority& authority, UndoStep step)
        : m_book(book)
        , m_authority(authority)
        , m_action(step == UndoStep::Undo ? JournalAction::Undo : JournalAction::Redo)
    {
    }

    std::optional<RepeatRefusal> operator()(const MovementChange& change)
    {
        const ChangeOutcome outcome = CashBook(m_book, m_authority).repeat(change, m_action);
        if (const auto* const refusal = std::get_if<MovementRefusal>(&outcome))
            return *refusal;
        m_day = std::get<ChangedDay>(outcome);
        return std::nullopt;
    }
    std::optional<RepeatRefusal> operator()(const GroupChange& change)
    {
        return repeatRenaming(m_book.main(), m_authority, change, m_action);
    }
    std::optional<RepeatRefusal> operator()(const CodeChange& change)
    {
        return repeatModification(m_book.main(), m_authority, change, m_action);
    }

    [[nodiscard]] const std::optional<ChangedDay>& day() const { return m_day; }

private:
    Book& m_book;
    const Authority& m_authority;
    const JournalAction m_action;
    std::optional<ChangedDay> m_day;
};

} // namespace

UndoList::UndoList(Book& book, Authority authority)
    : m_book(book)
    , m_authority(std::move(authority))
{
}

bool UndoList::add(const StoredChange& change)
{
    if (isLasting(change))
        return false;
    if (m_done.empty())
        m_since = lastRow(m_book.main());
    m_undone.clear();
    m_done.push_back(change);
    if (m_done.size() > depth)
        m_done.erase(m_done.begin());
    return true;
}

const StoredChange* UndoList::next(UndoStep step) const
{
    const auto& changes = step == UndoStep::Undo ? m_done : m_undone;
    return changes.empty() ? nullptr : &changes.back();
}

std::optional<UndoResult> UndoList::take(UndoStep step)
{
    const StoredChange* const change = next(step);
    if (!change)
        return std::nullopt;
    if (wasOverrun(m_book.main(), m_since))
        return forgetAll(*change);
    Repeating repeating(m_book, m_authority, step);
    const auto refusal = std::visit(repeating, step == UndoStep::Undo ? reversed(*change) : *change);
    UndoResult result{*change, repeating.day(), refusal ? repeatRefusalText(*refusal) : QString()};
    if (!refusal)
        move(step);
    return result;
}

void UndoList::move(UndoStep step)
{
    auto& from = step == UndoStep::Undo ? m_done : m_undone;
    auto& to = step == UndoStep::Undo ? m_undone : m_done;
    to.push_back(std::move(from.back()));
    from.pop_back();
}

UndoResult UndoList::forgetAll(StoredChange change)
{
    m_done.clear();
    m_undone.clear();
    return {std::move(change), {},
        QStringLiteral("Στο μεταξύ διαγράφηκαν όλα τα δεδομένα ή έγινε εισαγωγή από αρχεία· οι αλλαγές που είχαν γίνει"
                       " πριν μένουν όπως είναι.")};
}

} // namespace lorvan

#include "proof/trail_audit.h"

#include "audit/cash_day_findings.h"
#include "cashbook/cash_closing.h"
#include "cashbook/day_seal.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "journal/journal.h"
#include "journal/journal_audit.h"
#include "movements/day_view.h"
#include "movements/journal_states.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "proof/seal_chain.h"
#include "proof/trail_pass.h"

#include <QJsonDocument>

#include <algorithm>
#include <optional>
#include <utility>

namespace lorvan {
namespace {

QString compact(const QJsonObject& state)
{
    return QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact));
}

class Auditing {
public:
    explicit Auditing(Connection& book)
        : m_book(book)
        , m_seals(allSeals(book))
        , m_pass(m_seals, JournalAuditing::Claims::All)
    {
    }

    TrailAudit run()
    {
        readJournal();
        m_audit.seals = static_cast<std::int64_t>(m_seals.size());
        m_audit.faults = brokenLinks(m_seals, m_pass);
        m_journal = m_pass.takeJournal();
        m_audit.changes = m_journal.rows;
        m_audit.accepted = m_journal.accepted;
        compareDays();
        for (const TrailFault& fault : alteredOpenings(m_book))
            m_audit.faults.push_back(fault);
        for (const std::int64_t day : m_pass.counts().altered(m_seals))
            m_audit.faults.push_back({FindingKind::CountAltered, 0, day});
        compareMovements();
        compareCodes();
        compareGroups();
        return std::move(m_audit);
    }

private:
    void readJournal()
    {
        if (keepsJournal(m_book)) {
            auto rows = selectJournal(m_book, "ORDER BY id");
            while (rows.step())
                m_pass.take(journalRowIn(rows));
        }
    }

    void compareDays()
    {
        BookFindings others;
        const CarriedBalances balances(readCashDays(m_book, others), openingDifferences(m_book));
        std::optional<TrailFault> moved;
        for (const auto& [day, seal] : lastSeals(m_seals)) {
            if (isSame(*seal))
                compareCarried(*seal, balances, moved);
            else
                m_audit.faults.push_back({FindingKind::SealedDayAltered, seal->id, day});
        }
        if (moved)
            m_audit.faults.push_back(*moved);
    }

    bool isSame(const DaySeal& seal)
    {
        const QDate day = dateFromStored(seal.day);
        const DayView view = readDay(m_book, day);
        return seal.content == contentDigest(view.movements) && seal.income == view.figures.income
            && seal.expense == view.figures.expense
            && seal.movements == static_cast<std::int64_t>(view.movements.size()) && isClosed(m_book, day)
            && !m_pass.promises().isAltered(seal.day);
    }

    void compareCarried(const DaySeal& seal, const CarriedBalances& balances, std::optional<TrailFault>& moved)
    {
        const auto now = balances.into(seal.day);
        if (!now || now->balance == seal.carried)
            return;
        if (!noteUnexplained(m_pass.carries(), seal, *now, moved))
            m_audit.moved.push_back({seal.day, seal.carried, now->balance});
    }

    /// What is left of `states` afterwards should be there, and is not.
    void compare(StatesByKey& states, FindingKind kind, std::int64_t key, const QJsonObject& state, std::int64_t day)
    {
        const auto known = states.find(key);
        if (known == states.end())
            return;
        if (known->second != stateDigest(compact(state)))
            m_audit.faults.push_back({kind, key, day});
        states.erase(known);
    }

    void reportGone(const StatesByKey& states, FindingKind kind)
    {
        const StateDigest ofNone{};
        std::vector<std::int64_t> gone;
        for (const auto& [key, state] : states) {
            if (state != ofNone)
                gone.push_back(key);
        }
        std::sort(gone.begin(), gone.end());
        for (const std::int64_t key : gone)
            m_audit.faults.push_back({kind, key});
    }

    void compareMovements()
    {
        StatesByKey states = std::move(m_journal.movements);
        forEachMovement(m_book, [&](const Movement& movement) {
            if (states.contains(movement.key))
                compare(states, FindingKind::MovementAltered, movement.key, journalState(movement),
                    storedDate(movement.day));
        });
        reportGone(states, FindingKind::MovementAltered);
    }

    void compareCodes()
    {
        StatesByKey states = std::move(m_journal.codes);
        for (const MovementCode& code : listCodes(m_book, CodeSelection::All))
            compare(states, FindingKind::CodeAltered, code.row, journalState(code), 0);
        reportGone(states, FindingKind::CodeAltered);
    }

    void compareGroups()
    {
        StatesByKey states = std::move(m_journal.groups);
        for (const CodeGroup& group : listGroups(m_book))
            compare(states, FindingKind::GroupAltered, group.number, journalState(group), 0);
        reportGone(states, FindingKind::GroupAltered);
    }

    Connection& m_book;
    const std::vector<DaySeal> m_seals;
    TrailPass m_pass;
    JournalAudit m_journal;
    TrailAudit m_audit;
};

} // namespace

BookFindings TrailAudit::findings() const
{
    BookFindings all;
    for (const TrailFault& fault : faults)
        all.add(findingOf(fault));
    for (const MovedCarry& carry : moved) {
        Finding finding{FindingKind::CarryMoved};
        finding.day = carry.day;
        finding.stored.closingBalance = carry.printed;
        finding.expected.closingBalance = carry.carried;
        all.add(std::move(finding));
    }
    if (accepted > 0) {
        Finding finding{FindingKind::AcceptedFaults};
        finding.rows = accepted;
        all.add(std::move(finding));
    }
    return all;
}

TrailAudit auditTrail(Connection& book)
{
    return Auditing(book).run();
}

} // namespace lorvan

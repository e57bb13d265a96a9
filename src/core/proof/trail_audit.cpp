#include "proof/trail_audit.h"

#include "cashbook/cash_closing.h"
#include "cashbook/day_seal.h"
#include "cashbook/day_view.h"
#include "cashbook/journal_states.h"
#include "cashbook/movement_store.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "journal/journal.h"
#include "journal/journal_audit.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "proof/seal_chain.h"

#include <QJsonDocument>

#include <algorithm>
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
        , m_journal(auditJournal(book, journalRowsOf(m_seals)))
    {
    }

    TrailAudit run()
    {
        m_audit.changes = m_journal.rows;
        m_audit.seals = static_cast<std::int64_t>(m_seals.size());
        m_audit.accepted = m_journal.accepted;
        m_audit.faults = brokenLinks(m_seals, m_journal);
        compareDays();
        compareMovements();
        compareCodes();
        compareGroups();
        return std::move(m_audit);
    }

private:
    void compareDays()
    {
        for (const auto& [day, seal] : lastSeals(m_seals))
            compareDay(*seal);
    }

    void compareDay(const DaySeal& seal)
    {
        const QDate day = dateFromStored(seal.day);
        const DayView view = readDay(m_book, day);
        const bool isSame = seal.content == contentDigest(view.movements) && seal.income == view.figures.income
            && seal.expense == view.figures.expense
            && seal.movements == static_cast<std::int64_t>(view.movements.size()) && isClosed(m_book, day);
        if (!isSame)
            m_audit.faults.push_back({FindingKind::SealedDayAltered, seal.id, seal.day});
        else if (seal.carried != view.carried.balance)
            m_audit.moved.push_back({seal.day, seal.carried, view.carried.balance});
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
        std::vector<std::int64_t> gone;
        for (const auto& [key, state] : states) {
            if (state != StateDigest())
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
    JournalAudit m_journal;
    TrailAudit m_audit;
};

/// What the journal says of the subject, before it was accepted.
QJsonObject lastKnown(Connection& book, const QString& subject)
{
    auto row = book.prepare("SELECT after FROM main.journal WHERE subject=? ORDER BY id DESC LIMIT 1");
    row.bind(subject);
    return row.step() ? QJsonDocument::fromJson(row.text(0).toUtf8()).object() : QJsonObject();
}

void record(Connection& book, const Authority& authority, JournalEntry entry)
{
    entry.action = JournalAction::Accept;
    entry.before = lastKnown(book, entry.subject);
    recordChange(book, authority, entry);
}

template <typename Found, typename Same> QJsonObject stateAmong(const std::vector<Found>& all, const Same& isIt)
{
    const auto found = std::find_if(all.begin(), all.end(), isIt);
    return found == all.end() ? QJsonObject() : journalState(*found);
}

/// A day that was sealed stays closed. Returns the state of the new closing, if there was none.
QJsonObject closeAgain(Connection& book, QDate day)
{
    if (isClosed(book, day))
        return {};
    book.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(day).run();
    return {
        {QStringLiteral("hmeraklhsimatos"), storedDate(day)}, {QStringLiteral("aa"), qint64(book.lastInsertedKey())}};
}

void accept(Connection& book, const Authority& authority, const TrailFault& fault)
{
    const QDate day = dateFromStored(fault.day);
    JournalEntry entry;
    entry.day = day;
    switch (fault.kind) {
    case FindingKind::JournalBroken:
        entry.subject = journal_subject::journal(fault.key);
        entry.after = {{QLatin1String(acceptedFind), fault.found}};
        break;
    case FindingKind::SealBroken:
    case FindingKind::SealWithoutJournal:
        entry.subject = journal_subject::seal(fault.key);
        entry.after = {{QLatin1String(acceptedFind), fault.found}};
        break;
    case FindingKind::SealedDayAltered:
        entry.subject = journal_subject::day(day);
        entry.after = closeAgain(book, day);
        record(book, authority, entry);
        sealDay(book, authority, day, lastJournalHash(book));
        return;
    case FindingKind::MovementAltered: {
        entry.subject = journal_subject::movement(fault.key);
        const auto movement = findMovement(book, fault.key);
        entry.after = movement ? journalState(*movement) : QJsonObject();
        break;
    }
    case FindingKind::CodeAltered:
        entry.subject = journal_subject::code(fault.key);
        entry.after = stateAmong(
            listCodes(book, CodeSelection::All), [&](const MovementCode& code) { return code.row == fault.key; });
        break;
    default:
        entry.subject = journal_subject::group(fault.key);
        entry.after = stateAmong(listGroups(book), [&](const CodeGroup& group) { return group.number == fault.key; });
        break;
    }
    record(book, authority, entry);
}

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

std::int64_t acceptFaults(Connection& book, const Authority& authority)
{
    authority.require(Right::ModifyCash);
    Transaction writing(book, authority);
    const std::vector<TrailFault> faults = auditTrail(book).faults;
    if (!keepsJournal(book))
        return 0;
    for (const TrailFault& fault : faults)
        accept(book, authority, fault);
    writing.commit();
    return static_cast<std::int64_t>(faults.size());
}

} // namespace lorvan

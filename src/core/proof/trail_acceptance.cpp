#include "proof/trail_acceptance.h"

#include "book/book_schema.h"
#include "cashbook/cash_closing.h"
#include "cashbook/counted_cash.h"
#include "cashbook/day_seal.h"
#include "cashbook/journal_keeping.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "journal/journal.h"
#include "journal/journal_audit.h"
#include "movements/journal_states.h"
#include "movements/journalled_opening.h"
#include "movements/movement_store.h"
#include "platform/authority.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "proof/count_audit.h"
#include "proof/trail_audit.h"

#include <QJsonDocument>

#include <algorithm>
#include <set>

namespace lorvan {
namespace {

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

/// Closes the day if it is open, and seals it as it is.
void acceptDay(Connection& book, const Authority& authority, QDate day, const TrailFault& fault)
{
    JournalEntry entry;
    entry.subject = journal_subject::day(day);
    entry.day = day;
    entry.after = closeAgain(book, day);
    if (fault.kind == FindingKind::CarryAltered)
        entry.after[QLatin1String(acceptedCarry)] = qint64(fault.moved.tenThousandths());
    if (!fault.found.isEmpty())
        entry.after[QLatin1String(acceptedFind)] = fault.found;
    record(book, authority, entry);
    const bool isMissing = fault.kind == FindingKind::SealMissing;
    sealDay(book, authority, day, lastJournalHash(book), isMissing ? fault.key : 0);
}

void acceptOpenings(Connection& book, const Authority& authority)
{
    const auto told = journalledOpening(book).value_or(OpeningDifferences());
    const OpeningDifferences kept = openingDifferences(book);
    if (kept != told)
        recordChange(book, authority,
            {JournalAction::Accept, journal_subject::book(), {}, {}, journalState(told), journalState(kept)});
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
    case FindingKind::SealMissing:
    case FindingKind::SealedDayAltered:
    case FindingKind::CarryAltered:
        acceptDay(book, authority, day, fault);
        return;
    case FindingKind::CountAltered:
        entry.subject = journal_subject::day(day);
        entry.after = {{QLatin1String(acceptedCount), countedCashOf(book, day).value_or(CountedCash()).state()}};
        break;
    case FindingKind::OpeningAltered:
        acceptOpenings(book, authority);
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

Acceptance acceptFaults(Connection& book, const Authority& authority)
{
    authority.require(Right::ModifyCash);
    Transaction writing(book, authority);
    const std::vector<TrailFault> faults = auditTrail(book).faults;
    const Acceptance acceptance{static_cast<std::int64_t>(faults.size()), !keepsJournal(book), !keepsSeals(book)};
    if (acceptance.madeJournal)
        completeJournal(book, book);
    if (acceptance.madeSeals)
        createSealsTable(book, QStringLiteral("auxiliary"));
    std::set<std::int64_t> sealed;
    for (const TrailFault& fault : faults) {
        const bool seals = fault.kind >= FindingKind::SealMissing && fault.kind <= FindingKind::CarryAltered;
        if (!seals || sealed.insert(fault.day).second) // of a day that is both, the first
            accept(book, authority, fault);
    }
    writing.commit();
    return acceptance;
}

QString missingTablesText(const Acceptance& acceptance)
{
    QStringList texts;
    if (acceptance.madeJournal)
        texts += QStringLiteral(
            "Έλειπε ο πίνακας του ημερολογίου (journal). Έγινε νέος, που αρχίζει από τώρα: τι άλλαξε πριν δεν φαίνεται"
            " πια, και οι κωδικοί ελέγχου που έχουν τυπωθεί δεν βεβαιώνουν το ιστορικό.");
    if (acceptance.madeSeals)
        texts += QStringLiteral(
            "Έλειπε ο πίνακας των σφραγίδων (seals). Έγινε νέος, και σφραγίστηκαν ξανά οι ημέρες που λέει το"
            " ημερολόγιο: οι κωδικοί ελέγχου που έχουν τυπωθεί δεν υπάρχουν πια στο βιβλίο.");
    return texts.join(u'\n');
}

} // namespace lorvan

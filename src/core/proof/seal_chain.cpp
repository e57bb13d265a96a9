#include "proof/seal_chain.h"

#include "journal/hash_text.h"
#include "journal/stray_ids.h"
#include "movements/journalled_opening.h"
#include "platform/date_text.h"
#include "proof/trail_pass.h"

namespace lorvan {
namespace {

bool isNext(const DaySeal& seal, const DaySeal* before)
{
    return before ? seal.id == before->id + 1 && seal.previous == before->hash
                  : seal.id == 1 && seal.previous.isEmpty();
}

QString foundIn(const DaySeal& seal, const DaySeal* before)
{
    HashText text;
    text.add("before", before ? before->hash : QString())
        .add("id", seal.id)
        .add("hash", seal.hash)
        .add("content", sealHash(seal))
        .add("balances", seal.balanceHash)
        .add("printed", balanceHash(seal));
    Sha256 hash;
    hash.add(text.text());
    return hash.hash();
}

/// Also those that were accepted.
std::vector<TrailFault> brokenSeals(const std::vector<DaySeal>& seals, const JournalAudit& journal)
{
    std::vector<TrailFault> faults;
    const DaySeal* before = nullptr;
    bool isBreakOpen = false; // the seal before is the last of the last fault
    for (const DaySeal& seal : seals) {
        const bool isLinked = isNext(seal, before) && isWhole(seal);
        // what comes before a stray seal is another one with each closing
        const QString found = isLinked ? QString() : foundIn(seal, seal.id < firstStrayId ? before : nullptr);
        if (!isLinked && isBreakOpen) {
            ++faults.back().rows;
            faults.back().found = foundAfter(faults.back().found, found);
        } else if (!isLinked) {
            faults.push_back({FindingKind::SealBroken, seal.id, seal.day, found});
        } else if (journal.missing.contains(seal.journal)) {
            faults.push_back({FindingKind::SealWithoutJournal, seal.id, seal.day, foundIn(seal, before)});
        }
        isBreakOpen = !isLinked;
        before = &seal;
    }
    return faults;
}

} // namespace

Finding findingOf(const TrailFault& fault)
{
    Finding finding{fault.kind};
    finding.key = fault.key;
    finding.day = fault.day;
    finding.rows = fault.rows;
    finding.stored.closingBalance = fault.moved;
    return finding;
}

std::set<QString> journalRowsOf(const std::vector<DaySeal>& seals)
{
    std::set<QString> hashes;
    for (const DaySeal& seal : seals)
        hashes.insert(seal.journal);
    return hashes;
}

std::map<std::int64_t, const DaySeal*> lastSeals(const std::vector<DaySeal>& seals)
{
    std::map<std::int64_t, const DaySeal*> last;
    for (const DaySeal& seal : seals) {
        if (dateFromStored(seal.day).isValid())
            last[seal.day] = &seal;
    }
    return last;
}

bool noteUnexplained(const CarryAudit& carries, const DaySeal& seal, const CarriedBalances::Carried& now,
    std::optional<TrailFault>& moved)
{
    const Currency amount = carries.unexplained(seal, now);
    if (amount.isZero())
        return false;
    if (!moved) {
        moved = TrailFault{FindingKind::CarryAltered, seal.id, seal.day};
        moved->moved = amount;
    } else {
        ++moved->rows;
    }
    return true;
}

std::vector<TrailFault> alteredOpenings(Connection& book)
{
    std::vector<TrailFault> faults;
    const auto told = journalledOpening(book);
    if (!told)
        return faults;
    OpeningDifferences differing = openingDifferences(book);
    std::set<std::int64_t> days;
    for (const auto& [day, amount] : *told) {
        const auto found = differing.find(day);
        if (found == differing.end() || found->second != amount)
            days.insert(day);
        else
            differing.erase(found);
    }
    for (const auto& [day, amount] : differing)
        days.insert(day);
    for (const std::int64_t day : days)
        faults.push_back({FindingKind::OpeningAltered, 0, day});
    return faults;
}

std::vector<TrailFault> brokenLinks(const std::vector<DaySeal>& seals, const TrailPass& pass)
{
    const JournalAudit& journal = pass.journal();
    std::vector<TrailFault> faults;
    for (const BrokenRows& row : journal.broken) {
        faults.push_back({FindingKind::JournalBroken, row.id, 0, row.found});
        faults.back().rows = row.rows;
    }
    for (const TrailFault& fault : brokenSeals(seals, journal)) {
        const auto accepted = journal.acceptedSeals.find(fault.key);
        if (accepted == journal.acceptedSeals.end() || accepted->second != fault.found)
            faults.push_back(fault);
    }
    for (const LostSeals& lost : pass.promises().lost())
        faults.push_back({FindingKind::SealMissing, lost.versions, lost.day, lost.found});
    return faults;
}

} // namespace lorvan

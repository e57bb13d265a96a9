#include "proof/seal_chain.h"

#include "journal/hash_text.h"
#include "movements/journalled_opening.h"
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

} // namespace

Finding findingOf(const TrailFault& fault)
{
    Finding finding{fault.kind};
    finding.key = fault.key;
    finding.day = fault.day;
    finding.rows = fault.days;
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
    for (const DaySeal& seal : seals)
        last[seal.day] = &seal;
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
    }
    ++moved->days;
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
    for (const BrokenRow& row : journal.broken)
        faults.push_back({FindingKind::JournalBroken, row.id, 0, row.found});
    const DaySeal* before = nullptr;
    for (const DaySeal& seal : seals) {
        const bool isLinked = isNext(seal, before) && isWhole(seal);
        const bool isJournalled = !journal.missing.contains(seal.journal);
        if (!isLinked || !isJournalled) {
            const QString found = foundIn(seal, before);
            const auto accepted = journal.acceptedSeals.find(seal.id);
            const FindingKind kind = isLinked ? FindingKind::SealWithoutJournal : FindingKind::SealBroken;
            if (accepted == journal.acceptedSeals.end() || accepted->second != found)
                faults.push_back({kind, seal.id, seal.day, found});
        }
        before = &seal;
    }
    for (const LostSeals& lost : pass.promises().lost())
        faults.push_back({FindingKind::SealMissing, lost.versions, lost.day, lost.found});
    return faults;
}

} // namespace lorvan

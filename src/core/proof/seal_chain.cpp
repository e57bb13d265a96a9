#include "proof/seal_chain.h"

#include "journal/hash_text.h"
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

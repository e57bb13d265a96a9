#include "proof/seal_chain.h"

namespace lorvan {
namespace {

bool isNext(const DaySeal& seal, const DaySeal* before)
{
    return before ? seal.id == before->id + 1 && seal.previous == before->hash
                  : seal.id == 1 && seal.previous.isEmpty();
}

bool isWhole(const DaySeal& seal)
{
    return seal.hash == sealHash(seal) && seal.balanceHash == balanceHash(seal);
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

std::vector<TrailFault> brokenLinks(const std::vector<DaySeal>& seals, const JournalAudit& journal)
{
    std::vector<TrailFault> faults;
    for (const std::int64_t row : journal.broken)
        faults.push_back({FindingKind::JournalBroken, row});
    const DaySeal* before = nullptr;
    for (const DaySeal& seal : seals) {
        const bool isLinked = isNext(seal, before) && isWhole(seal);
        before = &seal;
        if (journal.acceptedSeals.contains(seal.id))
            continue;
        if (!isLinked)
            faults.push_back({FindingKind::SealBroken, seal.id, seal.day});
        else if (journal.missing.contains(seal.journal))
            faults.push_back({FindingKind::SealWithoutJournal, seal.id, seal.day});
    }
    return faults;
}

} // namespace lorvan

#pragma once

#include "journal/journal_audit.h"
#include "proof/carry_audit.h"
#include "proof/count_audit.h"
#include "proof/seal_chain.h"
#include "proof/seal_promises.h"

#include <utility>

namespace lorvan {

/// What one pass over the journal says of the book. Takes its rows one by one, in the order of their ids.
class TrailPass {
public:
    TrailPass(const std::vector<DaySeal>& seals, JournalAuditing::Claims claims)
        : m_journal(journalRowsOf(seals), claims)
        , m_promises(seals)
        , m_carries(seals)
    {
    }

    void take(const JournalRow& row)
    {
        const bool isWhole = m_journal.take(row);
        m_promises.take(row, isWhole);
        m_carries.take(row);
        m_counts.take(row);
    }

    [[nodiscard]] const JournalAudit& journal() const { return m_journal.audit(); }
    /// The same, after which it is empty.
    [[nodiscard]] JournalAudit takeJournal() { return std::move(m_journal).result(); }
    [[nodiscard]] const SealPromises& promises() const { return m_promises; }
    [[nodiscard]] const CarryAudit& carries() const { return m_carries; }
    [[nodiscard]] const CountAudit& counts() const { return m_counts; }

private:
    JournalAuditing m_journal;
    SealPromises m_promises;
    CarryAudit m_carries;
    CountAudit m_counts;
};

} // namespace lorvan

#include "jet/jet_table.h"

#include "jet/jet_data_page.h"
#include "jet/jet_usage_map.h"
#include "platform/stop_check.h"

#include <set>

namespace lorvan {
namespace {

constexpr int mostSteps = 16;

class RowReader {
public:
    RowReader(const JetFile& file, const JetDefinition& definition, const QString& table, JetDamage& damage,
        const std::function<void(const JetRow&)>& take)
        : m_file(file)
        , m_definition(definition)
        , m_table(table)
        , m_damage(damage)
        , m_take(take)
    {
    }

    void read()
    {
        findPages();
        for (std::uint32_t page = 0; page < m_file.pageCount(); ++page) {
            continueOrGiveUp();
            if (m_isMapped[page])
                m_damage.attempt(at(page, {}), [&] { readPage(page); });
        }
        checkCount();
    }

private:
    [[nodiscard]] JetPlace at(std::optional<std::uint32_t> page, std::optional<int> row) const
    {
        return {m_file.name(), m_table, page, row, {}};
    }

    void findPages()
    {
        m_isMapped.assign(m_file.pageCount(), false);
        const bool known = m_damage.attempt(at({}, {}), [this] {
            for (const std::uint32_t page : mappedPages(m_file, m_definition.usageMap))
                m_isMapped[page] = true;
        });
        if (!known)
            m_isMapped.flip();
    }

    void readPage(std::uint32_t page)
    {
        if (!m_file.isOfKind(page, JetFile::PageKind::Data))
            return;
        const JetDataPage data(m_file, page);
        if (data.owner() != m_definition.page)
            return;
        for (int row = 0; row < data.slotCount(); ++row)
            m_damage.attempt(at(page, row), [&] { readSlot(data.slot(row)); });
    }

    void readSlot(const JetDataPage::Slot& slot)
    {
        if (slot.isDeleted)
            return;
        ++m_found;
        m_take(JetRow(slot.isMoved ? movedBytes(slot.bytes) : slot.bytes, m_definition));
    }

    /// The data of a row that was moved; exactly one place may point to it.
    JetBytes movedBytes(JetBytes bytes)
    {
        for (int step = 0; step < mostSteps; ++step) {
            const JetRowPointer target = JetRowPointer::at(bytes, 0);
            const JetDataPage page(m_file, target.page);
            if (page.owner() != m_definition.page)
                throw JetError(
                    QStringLiteral("η γραμμή μεταφέρθηκε στη σελίδα %1, που είναι άλλου πίνακα").arg(target.page));
            const auto slot = page.slot(target.row);
            const bool readInItsPlace = !slot.isDeleted && m_isMapped[target.page];
            if (readInItsPlace || !m_reached.insert({target.page, target.row}).second)
                throw JetError(
                    QStringLiteral("η γραμμή μεταφέρθηκε στη σελίδα %1, γραμμή %2, που διαβάζεται και από αλλού")
                        .arg(target.page)
                        .arg(target.row));
            if (!slot.isMoved)
                return slot.bytes;
            bytes = slot.bytes;
        }
        throw JetError(QStringLiteral("η γραμμή μεταφέρθηκε περισσότερες από %1 φορές").arg(mostSteps));
    }

    void checkCount()
    {
        if (m_found == m_definition.rowCount)
            return;
        JetError difference(QStringLiteral("βρέθηκαν %1 γραμμές, ο ορισμός του πίνακα μετρά %2")
                                .arg(m_found)
                                .arg(m_definition.rowCount));
        difference.locate(at({}, {}));
        m_damage.meet(difference);
    }

    const JetFile& m_file;
    const JetDefinition& m_definition;
    const QString& m_table;
    JetDamage& m_damage;
    const std::function<void(const JetRow&)>& m_take;
    std::vector<bool> m_isMapped;
    std::set<std::pair<std::uint32_t, int>> m_reached;
    std::uint64_t m_found = 0;
};

} // namespace

void readRows(const JetFile& file, const JetDefinition& definition, const QString& table, JetDamage& damage,
    const std::function<void(const JetRow&)>& take)
{
    RowReader(file, definition, table, damage, take).read();
}

} // namespace lorvan

#include "proof/count_audit.h"

#include <QJsonDocument>

#include <optional>

namespace lorvan {
namespace {

CountedCash countIn(const QJsonObject& state)
{
    const QByteArray json = QJsonDocument(state).toJson(QJsonDocument::Compact);
    return CountedCash::fromJson(QString::fromUtf8(json)).value_or(CountedCash());
}

} // namespace

void CountAudit::take(const JournalRow& row)
{
    static const QString count = journalWord(JournalAction::Count);
    static const QString accept = journalWord(JournalAction::Accept);
    static const QString clear = journalWord(JournalAction::Clear);
    if (row.action == clear)
        m_counts.clear();
    if (!row.day || (row.action != count && (row.action != accept || m_counts.empty())))
        return;
    const QJsonObject state = QJsonDocument::fromJson(row.after.value_or(QString()).toUtf8()).object();
    if (row.action == count)
        m_counts[*row.day] = countIn(state);
    else if (state.contains(QLatin1String(acceptedCount)))
        m_counts[*row.day] = countIn(state[QLatin1String(acceptedCount)].toObject());
}

std::vector<std::int64_t> CountAudit::altered(const std::vector<DaySeal>& seals) const
{
    std::map<std::int64_t, QString> stored; // whichever of the day's seals has it, the last
    for (const DaySeal& seal : seals) {
        if (seal.counted)
            stored[seal.day] = *seal.counted;
    }
    std::vector<std::int64_t> days;
    for (const auto& [day, told] : m_counts) {
        const auto found = stored.find(day);
        const auto count = found == stored.end() ? CountedCash() : CountedCash::fromJson(found->second);
        if (count != told)
            days.push_back(day);
    }
    return days;
}

} // namespace lorvan

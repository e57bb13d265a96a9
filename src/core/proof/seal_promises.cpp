#include "proof/seal_promises.h"

#include "cashbook/seal_record.h"
#include "journal/hash_text.h"
#include "journal/journal_audit.h"
#include "proof/count_audit.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace lorvan {
namespace {

QJsonObject objectIn(const std::optional<QString>& json)
{
    return QJsonDocument::fromJson(json.value_or(QString()).toUtf8()).object();
}

bool isAction(const JournalRow& row, JournalAction action)
{
    static const std::map<JournalAction, QString> words = [] {
        std::map<JournalAction, QString> all;
        for (const JournalAction each : {JournalAction::Close, JournalAction::Seal, JournalAction::Accept,
                 JournalAction::Found, JournalAction::Clear, JournalAction::Import})
            all[each] = journalWord(each);
        return all;
    }();
    return row.action == words.at(action);
}

QString foundIn(const std::vector<QString>& rows)
{
    HashText text;
    for (const QString& row : rows)
        text.add("row", row);
    return rows.empty() ? QString() : text.hash();
}

} // namespace

SealPromises::SealPromises(const std::vector<DaySeal>& seals)
{
    for (const DaySeal& seal : seals)
        m_seals[seal.journal][seal.day] = seal.version;
}

void SealPromises::take(const JournalRow& row, bool isWhole)
{
    if (row.subject.startsWith(QLatin1String("movement/"))) {
        noteMovement(row);
    } else if (row.subject.startsWith(QLatin1String("day/"))) {
        noteDay(row, isWhole);
    } else if (row.subject == QLatin1String("book")) {
        if (isAction(row, JournalAction::Clear))
            m_days.clear();
        else if (isAction(row, JournalAction::Seal) || isAction(row, JournalAction::Import))
            promiseTold(row);
    }
}

void SealPromises::noteMovement(const JournalRow& row)
{
    if (m_days.empty() || !row.day)
        return;
    const auto day = m_days.find(*row.day);
    const bool seals = !isAction(row, JournalAction::Accept) && !isAction(row, JournalAction::Found);
    if (day != m_days.end() && !day->second.isAltered && seals)
        promise(*row.day, row.hash);
}

void SealPromises::noteDay(const JournalRow& row, bool isWhole)
{
    if (!row.day)
        return;
    if (isAction(row, JournalAction::Close)) {
        if (!isAltered(*row.day))
            promise(*row.day, row.hash);
    } else if (isAction(row, JournalAction::Accept)) {
        if (isWhole)
            acceptDay(row);
    } else if (isAction(row, JournalAction::Found) && objectIn(row.after).contains(QLatin1String(alteredSeal))) {
        m_days[*row.day].isAltered = true;
    }
}

/// Only what was found then is accepted: a day that has lost another seal since is not.
void SealPromises::acceptDay(const JournalRow& row)
{
    const QJsonObject state = objectIn(row.after);
    if (state.contains(QLatin1String(acceptedCount)))
        return; // that of a count seals nothing
    Day& day = m_days[*row.day];
    day.isAltered = false;
    if (state[QLatin1String(acceptedFind)].toString() == foundIn(day.lost))
        day.lost.clear();
    promise(*row.day, row.hash);
}

/// Of the rows that earlier releases wrote only the seals themselves tell the days.
void SealPromises::promiseTold(const JournalRow& row)
{
    const QJsonValue sealed = objectIn(row.after)[QLatin1String(daysSealedLate)];
    for (const auto& day : sealed.toArray())
        promise(day.toInteger(), row.hash);
    if (const auto seals = m_seals.find(row.hash); sealed.isUndefined() && seals != m_seals.end()) {
        for (const auto& [day, version] : seals->second)
            promise(day, row.hash);
    }
}

void SealPromises::promise(std::int64_t day, const QString& row)
{
    Day& promised = m_days[day];
    ++promised.versions;
    const auto seals = m_seals.find(row);
    const bool isThere = seals != m_seals.end() && seals->second.contains(day);
    if (!isThere || seals->second.at(day) < promised.versions)
        promised.lost.push_back(row);
}

std::vector<LostSeals> SealPromises::lost() const
{
    std::vector<LostSeals> lost;
    for (const auto& [day, promised] : m_days) {
        if (!promised.lost.empty())
            lost.push_back({day, promised.versions, foundIn(promised.lost)});
    }
    std::sort(lost.begin(), lost.end(), [](const auto& one, const auto& other) { return one.day < other.day; });
    return lost;
}

bool SealPromises::isAltered(std::int64_t day) const
{
    const auto found = m_days.find(day);
    return found != m_days.end() && found->second.isAltered;
}

std::vector<std::int64_t> SealPromises::altered() const
{
    std::vector<std::int64_t> days;
    for (const auto& [day, promised] : m_days) {
        if (promised.isAltered)
            days.push_back(day);
    }
    return days;
}

} // namespace lorvan

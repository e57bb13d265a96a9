#include "journal/journal_audit.h"

#include "journal/hash_text.h"
#include "journal/stray_ids.h"
#include "platform/engine/connection.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>

namespace lorvan {
namespace {

constexpr std::size_t mostBreaks = 1000;

/// What stands before the slash of a subject, and the number behind it.
std::pair<QString, std::int64_t> partsOf(const QString& subject)
{
    const qsizetype slash = subject.indexOf(u'/');
    return {subject.left(slash), subject.mid(slash + 1).toLongLong()};
}

QString fileIn(const JournalRow& import)
{
    const QByteArray state = import.after.value_or(QString()).toUtf8();
    return QJsonDocument::fromJson(state)[QStringLiteral("file")].toString();
}

} // namespace

JournalAuditing::JournalAuditing(std::set<QString> wanted, Claims claims)
    : m_claims(claims)
{
    m_audit.missing = std::move(wanted);
}

bool JournalAuditing::take(const JournalRow& row)
{
    static const QString accept = journalWord(JournalAction::Accept);
    static const QString clearing = journalWord(JournalAction::Clear);
    ++m_audit.rows;
    const bool isWhole = !isBroken(row);
    if (isWhole)
        m_isBreakOpen = false;
    else
        noteBroken(row);
    m_audit.missing.erase(row.hash);
    if (row.action == accept && isWhole) // a row that is broken itself accepts nothing
        noteAccepted(row);
    if (row.action == clearing)
        clear();
    if (m_claims == Claims::All)
        noteState(row);
    m_before = row;
    return isWhole;
}

bool JournalAuditing::isBroken(const JournalRow& row) const
{
    const bool isNext =
        m_before ? row.id == m_before->id + 1 && row.previous == m_before->hash : row.id == 1 && row.previous.isEmpty();
    return !isNext || row.hash != journalHash(row);
}

/// What comes before a stray row is another one with each change.
QString JournalAuditing::foundIn(const JournalRow& row) const
{
    HashText text;
    text.add("before", m_before && row.id < firstStrayId ? m_before->hash : QString())
        .add("id", row.id)
        .add("hash", row.hash)
        .add("content", journalHash(row));
    Sha256 hash;
    hash.add(text.text());
    return hash.hash();
}

void JournalAuditing::noteBroken(const JournalRow& row)
{
    const QString found = foundIn(row);
    const bool isStray = row.id >= firstStrayId;
    const auto accepted = isStray ? m_acceptedStray.find(row.id) : m_acceptedStray.end();
    if (accepted != m_acceptedStray.end() && accepted->second == found) {
        m_audit.acceptedRows.insert(row.id);
    } else if (m_isBreakOpen && !isStray) {
        BrokenRows& last = m_audit.broken.back();
        ++last.rows;
        last.found = foundAfter(last.found, found);
    } else if (m_audit.broken.size() < mostBreaks) {
        m_audit.broken.push_back({row.id, 1, found});
        m_isBreakOpen = true;
    }
}

/// Only what was found then is accepted: a row that was changed once more is not.
void JournalAuditing::noteAccepted(const JournalRow& row)
{
    const auto [kind, key] = partsOf(row.subject);
    const QString found =
        QJsonDocument::fromJson(row.after.value_or(QString()).toUtf8())[QLatin1String(acceptedFind)].toString();
    ++m_audit.accepted;
    if (kind == QLatin1String("journal")) {
        ++m_acceptedOfJournal;
        if (key >= firstStrayId)
            m_acceptedStray[key] = found;
        const auto gone = std::erase_if(m_audit.broken,
            [&, id = key](const BrokenRows& broken) { return broken.id == id && broken.found == found; });
        if (gone > 0)
            m_audit.acceptedRows.insert(key);
    } else if (kind == QLatin1String("seal"))
        m_audit.acceptedSeals.insert_or_assign(key, found);
}

void JournalAuditing::noteState(const JournalRow& row)
{
    static const QString importing = journalWord(JournalAction::Import);
    if (row.action == importing)
        forgetImported(fileIn(row));
    const auto [kind, key] = partsOf(row.subject);
    if (StatesByKey* const states = statesOf(kind))
        (*states)[key] = row.after ? stateDigest(*row.after) : StateDigest();
}

/// Rows that were told to be gone may have come again. An import of an older book names no file of its own.
void JournalAuditing::forgetImported(const QString& file)
{
    const bool isEverything = !file.endsWith(QLatin1String(".csv"));
    if (isEverything || file.startsWith(QLatin1String("kvdikoi")))
        m_audit.codes.clear();
    if (isEverything || file.startsWith(QLatin1String("omades")))
        m_audit.groups.clear();
}

/// Everything was deleted: what stood there before is gone, but for the journal.
void JournalAuditing::clear()
{
    m_audit.accepted = m_acceptedOfJournal;
    m_audit.acceptedSeals.clear();
    for (StatesByKey* const states : {&m_audit.movements, &m_audit.codes, &m_audit.groups}) {
        for (auto& [key, state] : *states)
            state = {};
    }
}

StatesByKey* JournalAuditing::statesOf(const QString& kind)
{
    if (kind == QLatin1String("movement"))
        return &m_audit.movements;
    if (kind == QLatin1String("code"))
        return &m_audit.codes;
    return kind == QLatin1String("group") ? &m_audit.groups : nullptr;
}

JournalAudit auditJournal(Connection& book, std::set<QString> wanted)
{
    JournalAuditing auditing(std::move(wanted));
    if (!keepsJournal(book))
        return std::move(auditing).result();
    auto rows = selectJournal(book, "ORDER BY id");
    while (rows.step())
        auditing.take(journalRowIn(rows));
    return std::move(auditing).result();
}

QString foundAfter(const QString& before, const QString& found)
{
    return HashText().add("before", before).add("found", found).hash();
}

StateDigest stateDigest(const QString& json)
{
    QByteArray text = json.toUtf8();
    if (text.contains("omada")) {
        QJsonObject state = QJsonDocument::fromJson(text).object();
        for (const char* const follows : {"omada", "aa_omadas", "moved", "digest", "aa_omada"})
            state.remove(QLatin1String(follows));
        text = QJsonDocument(state).toJson(QJsonDocument::Compact);
    }
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    StateDigest digest;
    std::memcpy(digest.data(), hash.constData(), sizeof digest);
    return digest;
}

} // namespace lorvan

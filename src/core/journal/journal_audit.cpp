#include "journal/journal_audit.h"

#include "journal/journal.h"
#include "platform/engine/connection.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

namespace lorvan {
namespace {

constexpr std::size_t mostBreaks = 1000;

class Auditing {
public:
    explicit Auditing(std::set<QString> wanted) { m_audit.missing = std::move(wanted); }

    void take(JournalRow row)
    {
        ++m_audit.rows;
        if (isBroken(row) && m_audit.broken.size() < mostBreaks)
            m_audit.broken.push_back(row.id);
        m_audit.missing.erase(row.hash);
        noteState(row);
        m_before = std::move(row);
    }

    [[nodiscard]] JournalAudit result() && { return std::move(m_audit); }

private:
    [[nodiscard]] bool isBroken(const JournalRow& row) const
    {
        const bool isNext = m_before ? row.id == m_before->id + 1 && row.previous == m_before->hash
                                     : row.id == 1 && row.previous.isEmpty();
        return !isNext || row.hash != journalHash(row);
    }

    void noteState(const JournalRow& row)
    {
        const qsizetype slash = row.subject.indexOf(u'/');
        const QString kind = row.subject.left(slash);
        const std::int64_t key = row.subject.mid(slash + 1).toLongLong();
        if (row.action == journalWord(JournalAction::Clear))
            clear();
        if (row.action == journalWord(JournalAction::Accept))
            accept(kind, key);
        if (StatesByKey* const states = statesOf(kind))
            (*states)[key] = row.after ? stateDigest(*row.after) : StateDigest();
    }

    /// Everything was deleted: what stood there before is gone.
    void clear()
    {
        for (StatesByKey* const states : {&m_audit.movements, &m_audit.codes, &m_audit.groups}) {
            for (auto& [key, state] : *states)
                state = {};
        }
    }

    void accept(const QString& kind, std::int64_t key)
    {
        ++m_audit.accepted;
        if (kind == QLatin1String("journal"))
            std::erase(m_audit.broken, key);
        else if (kind == QLatin1String("seal"))
            m_audit.acceptedSeals.insert(key);
    }

    [[nodiscard]] StatesByKey* statesOf(const QString& kind)
    {
        if (kind == QLatin1String("movement"))
            return &m_audit.movements;
        if (kind == QLatin1String("code"))
            return &m_audit.codes;
        return kind == QLatin1String("group") ? &m_audit.groups : nullptr;
    }

    JournalAudit m_audit;
    std::optional<JournalRow> m_before;
};

} // namespace

JournalAudit auditJournal(Connection& book, std::set<QString> wanted)
{
    Auditing auditing(std::move(wanted));
    if (!keepsJournal(book))
        return std::move(auditing).result();
    std::string sql = "SELECT ";
    auto rows = book.prepare(sql.append(journalColumns).append(" FROM main.journal ORDER BY id"));
    while (rows.step())
        auditing.take(journalRowIn(rows));
    return std::move(auditing).result();
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

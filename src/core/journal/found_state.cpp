#include "journal/found_state.h"

#include "journal/journal.h"
#include "journal/journal_audit.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"

#include <QJsonDocument>

namespace lorvan {
namespace {

std::int64_t lastImport(Connection& book)
{
    auto row = book.prepare("SELECT ifnull(max(id), 0) FROM main.journal WHERE subject='book' AND action='import'");
    return row.step() ? row.integer(0) : 0;
}

bool isSame(const QString& told, const QJsonObject& state)
{
    return stateDigest(told) == stateDigest(QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact)));
}

} // namespace

void recordFoundState(Connection& book, const JournalEntry& change)
{
    if (change.before.isEmpty() || !keepsJournal(book))
        return;
    QString told;
    {
        const bool isMovement = change.subject.startsWith(QLatin1String("movement/"));
        auto last = book.prepare("SELECT after FROM main.journal WHERE subject=? AND id>? ORDER BY id DESC LIMIT 1");
        if (!last.bind(change.subject, isMovement ? 0 : lastImport(book)).step())
            return;
        told = last.text(0);
    }
    QJsonObject state = change.before;
    for (const char* const ofChange : {"moved", "aa_omada", "digest"}) // beside a code's state, what the change moved
        state.remove(QLatin1String(ofChange));
    if (!isSame(told, state))
        recordChange(book, Authority::program(),
            {JournalAction::Found, change.subject, change.day, change.code,
                QJsonDocument::fromJson(told.toUtf8()).object(), state});
}

} // namespace lorvan

#include "cashbook/seal_record.h"

#include "cashbook/day_seal.h"
#include "journal/journal.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace lorvan {

QJsonObject lateSealingState(const std::vector<QDate>& days)
{
    QJsonArray all;
    for (const QDate day : days)
        all.append(storedDate(day));
    return {{QStringLiteral("days"), qint64(days.size())}, {QStringLiteral("from"), storedDate(days.front())},
        {QStringLiteral("to"), storedDate(days.back())}, {QLatin1String(daysSealedLate), all}};
}

void recordAltered(Connection& book, const Authority& authority, QDate day)
{
    const auto seal = lastSealOf(book, day);
    recordChange(book, authority,
        {JournalAction::Found, journal_subject::day(day), day, {}, {},
            {{QLatin1String(alteredSeal), qint64(seal ? seal->id : 0)}}});
}

JournalledSeals::JournalledSeals(Connection& book)
    : m_book(book)
{
    if (!keepsJournal(book))
        return;
    auto rows = book.prepare("SELECT id, action, after FROM main.journal WHERE subject='book'"
                             " AND action IN ('seal', 'clear') ORDER BY id");
    while (rows.step()) {
        if (rows.text(1) == journalWord(JournalAction::Clear)) {
            m_cleared = rows.integer(0);
            m_late.clear();
            continue;
        }
        const QJsonDocument state = QJsonDocument::fromJson(rows.text(2).toUtf8());
        for (const auto& day : state[QLatin1String(daysSealedLate)].toArray())
            m_late.insert(day.toInteger());
    }
}

bool JournalledSeals::tellOf(QDate day) const
{
    if (!keepsJournal(m_book))
        return false;
    return m_late.contains(storedDate(day))
        || m_book.prepare("SELECT 1 FROM main.journal WHERE subject=? AND action IN ('close', 'accept') AND id>?")
               .bind(journal_subject::day(day), m_cleared)
               .step();
}

std::set<std::int64_t> JournalledSeals::days() const
{
    if (!keepsJournal(m_book))
        return {};
    std::set<std::int64_t> days = m_late;
    auto rows = m_book.prepare("SELECT DISTINCT day FROM main.journal WHERE subject>='day/' AND subject<'day0'"
                               " AND action IN ('close', 'accept') AND id>?");
    for (rows.bind(m_cleared); rows.step();)
        days.insert(rows.integer(0));
    return days;
}

std::set<std::int64_t> sealedDays(Connection& book)
{
    std::set<std::int64_t> days = JournalledSeals(book).days();
    if (!keepsJournal(book) || !keepsSeals(book))
        return days;
    auto rows = book.prepare("SELECT DISTINCT day FROM seals");
    while (rows.step())
        days.insert(rows.integer(0));
    return days;
}

} // namespace lorvan

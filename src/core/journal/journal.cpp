#include "journal/journal.h"

#include "journal/hash_text.h"
#include "journal/stray_ids.h"
#include "platform/authority.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"

#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <string>
#include <tuple>
#include <utility>

namespace lorvan {
namespace {

constexpr std::array<std::pair<JournalAction, const char*>, 17> words{{
    {JournalAction::Begin, "begin"},
    {JournalAction::Insert, "insert"},
    {JournalAction::Modify, "modify"},
    {JournalAction::Remove, "remove"},
    {JournalAction::Undo, "undo"},
    {JournalAction::Redo, "redo"},
    {JournalAction::Close, "close"},
    {JournalAction::Seal, "seal"},
    {JournalAction::Correct, "correct"},
    {JournalAction::Repair, "repair"},
    {JournalAction::Opening, "opening"},
    {JournalAction::Import, "import"},
    {JournalAction::Restore, "restore"},
    {JournalAction::Clear, "clear"},
    {JournalAction::Found, "found"},
    {JournalAction::Count, "count"},
    {JournalAction::Accept, "accept"},
}};

constexpr std::string_view columns =
    "id, at, user, computer, action, subject, day, code, before, after, previous, hash";

std::optional<QString> json(const QJsonObject& state)
{
    if (state.isEmpty())
        return std::nullopt;
    return QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact));
}

std::optional<std::int64_t> optionalInteger(const Statement& row, int column)
{
    return row.isNull(column) ? std::nullopt : std::optional(row.integer(column));
}

std::optional<QString> optionalText(const Statement& row, int column)
{
    return row.isNull(column) ? std::nullopt : std::optional(row.text(column));
}

void store(Connection& book, const JournalRow& row)
{
    std::string sql = "INSERT INTO main.journal (";
    auto insert = book.prepare(sql.append(columns).append(") VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"));
    insert.bind(row.id, row.at, row.user, row.computer, row.action, row.subject, row.day, row.code, row.before,
        row.after, row.previous, row.hash);
    insert.run();
}

/// The id and the hash of the last row.
std::pair<std::int64_t, QString> lastRow(Connection& book)
{
    auto last = book.prepare("SELECT id, hash FROM main.journal WHERE id<? ORDER BY id DESC LIMIT 1");
    return last.bind(firstStrayId).step() ? std::pair(last.integer(0), last.text(1))
                                          : std::pair(std::int64_t(0), QString());
}

} // namespace

QString journalWord(JournalAction action)
{
    const auto* const found =
        std::find_if(words.begin(), words.end(), [&](const auto& word) { return word.first == action; });
    return QLatin1String(found->second);
}

std::optional<JournalAction> journalAction(const QString& word)
{
    const auto* const found = std::find_if(
        words.begin(), words.end(), [&](const auto& known) { return word == QLatin1String(known.second); });
    return found == words.end() ? std::nullopt : std::optional(found->first);
}

namespace journal_subject {

QString movement(std::int64_t key)
{
    return QStringLiteral("movement/%1").arg(key);
}

QString day(QDate day)
{
    return QStringLiteral("day/") + day.toString(QStringLiteral("yyyyMMdd"));
}

QString code(std::int64_t row)
{
    return QStringLiteral("code/%1").arg(row);
}

QString group(std::int64_t number)
{
    return QStringLiteral("group/%1").arg(number);
}

QString user(const QString& name)
{
    return QStringLiteral("user/") + name;
}

QString journal(std::int64_t id)
{
    return QStringLiteral("journal/%1").arg(id);
}

QString seal(std::int64_t id)
{
    return QStringLiteral("seal/%1").arg(id);
}

QString book()
{
    return QStringLiteral("book");
}

} // namespace journal_subject

bool keepsJournal(const Connection& book)
{
    return book.knowsTable("journal");
}

QString recordChange(Connection& book, const Authority& authority, const JournalEntry& entry)
{
    if (!keepsJournal(book))
        return {};
    JournalRow row;
    std::tie(row.id, row.previous) = lastRow(book);
    ++row.id;
    row.at = authority.now().toMSecsSinceEpoch();
    row.user = authority.name();
    row.computer = authority.computer();
    row.action = journalWord(entry.action);
    row.subject = entry.subject;
    if (entry.day.isValid())
        row.day = storedDate(entry.day);
    row.code = entry.code;
    row.before = json(entry.before);
    row.after = json(entry.after);
    row.hash = journalHash(row);
    store(book, row);
    return row.hash;
}

QString lastJournalHash(Connection& book)
{
    return keepsJournal(book) ? lastRow(book).second : QString();
}

QString journalHash(const JournalRow& row)
{
    return HashText()
        .add("id", row.id)
        .add("at", row.at)
        .add("user", row.user)
        .add("computer", row.computer)
        .add("action", row.action)
        .add("subject", row.subject)
        .add("day", row.day)
        .add("code", row.code)
        .add("before", row.before)
        .add("after", row.after)
        .add("previous", row.previous)
        .hash();
}

Statement selectJournal(Connection& book, std::string_view rest)
{
    std::string sql = "SELECT ";
    return book.prepare(sql.append(columns).append(" FROM main.journal ").append(rest));
}

JournalRow journalRowIn(const Statement& row)
{
    JournalRow found;
    found.id = row.integer(0);
    found.at = row.integer(1);
    found.user = row.text(2);
    found.computer = row.text(3);
    found.action = row.text(4);
    found.subject = row.text(5);
    found.day = optionalInteger(row, 6);
    found.code = optionalInteger(row, 7);
    found.before = optionalText(row, 8);
    found.after = optionalText(row, 9);
    found.previous = row.text(10);
    found.hash = row.text(11);
    return found;
}

} // namespace lorvan

#pragma once

#include <QDate>
#include <QDateTime>
#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>

namespace lorvan {

class Authority;
class Connection;
class Statement;

/// What was done to a subject. The words stored in the file are those of journalWord().
enum class JournalAction {
    Begin, ///< The journal begins here: a new book, or one from before there was a journal.
    Insert,
    Modify,
    Remove,
    Undo, ///< The change before was taken back.
    Redo, ///< And made again.
    Close, ///< A cash day was closed.
    Seal, ///< A closed day was sealed, or sealed again.
    Correct, ///< A cash day's row was brought in line with its movements.
    Repair,
    Opening, ///< An opening balance was given.
    Import,
    Restore,
    Clear, ///< All data were deleted.
    Found, ///< Changed without the journal, and found later.
    Count, ///< The cash was counted.
    Accept ///< A finding of the check was accepted.
};

[[nodiscard]] QString journalWord(JournalAction action);
[[nodiscard]] std::optional<JournalAction> journalAction(const QString& word);

/// What a row of the journal is about, as stored: "movement/17" by key, "day/20261123", "code/4" and "group/2" by row,
/// "user/ΜΑΡΙΑ" by name, "journal/9" and "seal/3" by id, and "book".
namespace journal_subject {
[[nodiscard]] QString movement(std::int64_t key);
[[nodiscard]] QString day(QDate day);
[[nodiscard]] QString code(std::int64_t row);
[[nodiscard]] QString group(std::int64_t number);
[[nodiscard]] QString user(const QString& name);
[[nodiscard]] QString book();
/// A row of the journal or a seal whose fault was accepted.
[[nodiscard]] QString journal(std::int64_t id);
[[nodiscard]] QString seal(std::int64_t id);
} // namespace journal_subject

/// One change. The states before and after are columns with their values as stored, or counts and a digest for work on
/// many rows; never a password. Empty where there was or is nothing.
struct JournalEntry {
    JournalAction action = JournalAction::Modify;
    QString subject;
    QDate day = {}; ///< Invalid if the change is not about a day.
    std::optional<std::int64_t> code = std::nullopt;
    QJsonObject before = {};
    QJsonObject after = {};
};

/// A row as stored.
struct JournalRow {
    std::int64_t id = 0;
    std::int64_t at = 0; ///< UTC milliseconds since 1970.
    QString user;
    QString computer;
    QString action;
    QString subject;
    std::optional<std::int64_t> day; ///< yyyymmdd.
    std::optional<std::int64_t> code;
    std::optional<QString> before; ///< JSON, keys sorted.
    std::optional<QString> after;
    QString previous; ///< The hash of the row before it; empty in the first.
    QString hash;
};

/// True if the book has a journal. A book that was never opened for writing since there are journals has none, and
/// neither has an auxiliary database alone.
[[nodiscard]] bool keepsJournal(const Connection& book);

/// Adds a row for a change, inside the caller's transaction, which already holds the right to write, so that rows of
/// all programs make one chain. Does nothing if the book has no journal. Returns the row's hash, empty if there is
/// none. Throws SqlError.
QString recordChange(Connection& book, const Authority& authority, const JournalEntry& entry);

/// The hash of the last row; empty if there is none.
[[nodiscard]] QString lastJournalHash(Connection& book);

/// The hash that a row should carry: SHA-256, in hexadecimal digits, of the text described in docs/data-files.md.
[[nodiscard]] QString journalHash(const JournalRow& row);

/// A statement that selects rows of the journal by the rest of its text, and the row that it has reached.
[[nodiscard]] Statement selectJournal(Connection& book, std::string_view rest);
[[nodiscard]] JournalRow journalRowIn(const Statement& row);

} // namespace lorvan

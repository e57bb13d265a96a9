#pragma once

#include "journal/journal.h"
#include "platform/search_text.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace lorvan {

/// What a row of the journal is about.
enum class JournalKind { Movement, CashDay, Code, Group, User, Book };

/// By the beginning of the subject; nothing for a subject of a newer version.
[[nodiscard]] std::optional<JournalKind> journalKind(const QString& subject);

/// The subjects of a kind are those from the first text up to, but without, the second one.
[[nodiscard]] std::pair<QString, QString> journalSubjects(JournalKind kind);

/// A kind as a heading: "Κινήσεις".
[[nodiscard]] QString journalKindText(JournalKind kind);

[[nodiscard]] const std::vector<JournalKind>& journalKinds();

/// Which rows of the journal are wanted. What has no value leaves out nothing.
struct JournalFilter {
    std::optional<QDate> day = std::nullopt; ///< The cash day that was changed.
    QString user = {}; ///< A part of the user's name; letter case and accents do not matter.
    std::optional<std::int64_t> code = std::nullopt; ///< The code before or after the change.
    std::optional<JournalKind> kind = std::nullopt;
    QString subject = {}; ///< One subject's own history.

    [[nodiscard]] bool isEmpty() const { return *this == JournalFilter(); }
    friend bool operator==(const JournalFilter&, const JournalFilter&) = default;
};

/// The filter as a line above a list: "Φίλτρα: ημέρα 23-11-2026, χρήστης ΜΑΡΙΑ". "Όλες οι αλλαγές" if it leaves out
/// nothing.
[[nodiscard]] QString journalFilterText(const JournalFilter& filter);

/// Compares rows with a filter, many in turn.
class JournalMatch {
public:
    explicit JournalMatch(JournalFilter filter);

    [[nodiscard]] const JournalFilter& filter() const { return m_filter; }
    [[nodiscard]] bool accepts(const JournalRow& row) const;

private:
    [[nodiscard]] bool acceptsSubject(const QString& subject) const;

    JournalFilter m_filter;
    SearchText m_user;
};

} // namespace lorvan

#pragma once

#include <QString>

#include <vector>

namespace lorvan {

class Authority;
class Connection;

/// Groups and codes to begin a book with.
struct ReadySet {
    struct Code {
        qint32 number;
        QString description;
        bool income = false;
    };
    struct Group {
        QString name;
        std::vector<Code> codes;
    };

    QString name; ///< The kind of business: "Κατάστημα".
    std::vector<Group> groups;

    [[nodiscard]] std::size_t codeCount() const;
};

[[nodiscard]] const std::vector<ReadySet>& readySets();

/// Adds the groups and codes of a set to a book, each recorded in the journal. For a book without codes: throws
/// std::logic_error if one is refused, SqlError.
void addReadySet(Connection& main, const Authority& authority, const ReadySet& set);

} // namespace lorvan

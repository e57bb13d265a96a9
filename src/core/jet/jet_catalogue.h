#pragma once

#include "jet/jet_row.h"

#include <QMap>
#include <QStringList>

namespace lorvan {

/// The user tables listed in a file.
class JetCatalogue {
public:
    /// Throws JetError if the definition of the catalogue itself cannot be read; errors in its rows are damage,
    /// including a repeated name.
    JetCatalogue(const JetFile& file, JetDamage& damage);

    [[nodiscard]] QStringList tableNames() const { return m_pages.keys(); } ///< In lower case.

    /// Letter case is ignored. Throws JetError for a table that is missing or whose definition is damaged.
    [[nodiscard]] JetDefinition definitionOf(const QString& table) const;

private:
    void take(const JetDefinition& catalogue, const JetRow& row);

    const JetFile& m_file;
    QMap<QString, std::uint32_t> m_pages; // by name in lower case
};

} // namespace lorvan

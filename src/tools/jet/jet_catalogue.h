#pragma once

#include "jet/jet_row.h"

#include <QMap>
#include <QStringList>

namespace lorvan {

/// The user tables that a file names.
class JetCatalogue {
public:
    /// Throws JetError where the definition of the catalogue itself cannot be read; what is wrong in its rows is
    /// damage, a name used twice included.
    JetCatalogue(const JetFile& file, JetDamage& damage);

    [[nodiscard]] QStringList tableNames() const { return m_pages.keys(); } ///< In lower case.

    /// Names ignore letter case. Throws JetError for a table that is missing or whose definition is damaged.
    [[nodiscard]] JetDefinition definitionOf(const QString& table) const;

private:
    void take(const JetDefinition& catalogue, const JetRow& row);

    const JetFile& m_file;
    QMap<QString, std::uint32_t> m_pages; // by name in lower case
};

} // namespace lorvan

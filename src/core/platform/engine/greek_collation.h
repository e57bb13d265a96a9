#pragma once

#include <QCollator>
#include <QString>

namespace lorvan {

/// Greek order of names: letter case is ignored (for ς and σ too), accents count. Names that differ only in case are
/// equal; all others differ.
class GreekCollation {
public:
    GreekCollation();

    /// Negative, zero or positive if `left` sorts before, equal to or after `right`.
    [[nodiscard]] int compare(const QString& left, const QString& right) const;

private:
    QCollator m_collator;
};

} // namespace lorvan

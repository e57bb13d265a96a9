#pragma once

#include <QCollator>
#include <QString>

namespace lorvan {

/// Greek order of names: letter case is ignored (ς and σ included), accents count. Names that differ by case alone are
/// equal, any other two are not.
class GreekCollation {
public:
    GreekCollation();

    /// Negative, zero or positive as `left` stands before, with or after `right`.
    [[nodiscard]] int compare(const QString& left, const QString& right) const;

private:
    QCollator m_collator;
};

} // namespace lorvan

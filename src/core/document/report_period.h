#pragma once

#include <QDate>
#include <QString>

#include <vector>

namespace lorvan {

/// A period offered for choice, both days included.
struct NamedPeriod {
    QString name;
    QDate start;
    QDate end;
};

/// The usual periods as seen from that day. Those still running end with the day itself.
[[nodiscard]] std::vector<NamedPeriod> usualPeriods(QDate today);

} // namespace lorvan

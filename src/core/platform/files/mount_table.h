#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace lorvan {

/// A mounted file system as the kernel lists it.
struct Mount {
    QByteArray point;
    QByteArray type;
    QList<QByteArray> options;
};

/// The mount that contains `path` (without links); an empty one if there is none. `mountInfo` is the content of
/// /proc/self/mountinfo.
[[nodiscard]] Mount mountOf(const QByteArray& mountInfo, const QString& path);

/// The content of /proc/self/mountinfo; empty if it cannot be read.
[[nodiscard]] QByteArray mountInfo();

/// True if the file system is known to be reached over a network.
[[nodiscard]] bool isOnNetwork(const Mount& mount);

} // namespace lorvan

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace lorvan {

/// A marker file, as this machine finds it again after a restart too.
struct MarkerPlace {
    QString folder; ///< Without links.
    quint64 inode = 0;

    friend bool operator==(const MarkerPlace&, const MarkerPlace&) = default;
};

/// Notes in the user's state folder, one for each claim of a usage marker, by which a later start knows that the
/// process that claimed it lives no more. A process that runs elsewhere on this machine, out of our sight, counts as
/// living.

/// Leaves a note that the running process claims that marker, confirmed by the disk. Returns its name; empty where
/// there is no state folder, or none that can be written.
[[nodiscard]] std::optional<QString> leaveClaimNote(const MarkerPlace& place);

/// A note that cannot be removed stays.
void removeClaimNote(const QString& name) noexcept;

/// The notes that this machine has for a marker.
struct ClaimNotes {
    QStringList ofTheDead;
    QStringList ofTheLiving;
};
[[nodiscard]] ClaimNotes claimNotesFor(const MarkerPlace& place);

} // namespace lorvan

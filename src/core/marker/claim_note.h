#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace lorvan {

/// A marker file, identified in a way that is still valid after a restart of the computer.
struct MarkerPlace {
    QString folder; ///< Without links.
    quint64 inode = 0;

    friend bool operator==(const MarkerPlace&, const MarkerPlace&) = default;
};

/// Notes in the user's state folder, one for each claim of a usage marker. They tell a later start that the process
/// that claimed it is no longer alive. A process that runs elsewhere on this machine, where we cannot see it, counts as
/// alive.

/// Leaves a note, confirmed by the disk, that the running process claims that marker. Returns its name; empty if the
/// state folder does not exist or cannot be written.
[[nodiscard]] std::optional<QString> leaveClaimNote(const MarkerPlace& place);

/// If the note cannot be removed, it stays.
void removeClaimNote(const QString& name) noexcept;

/// The notes on this machine for a marker.
struct ClaimNotes {
    QStringList ofTheDead;
    QStringList ofTheLiving;
};
[[nodiscard]] ClaimNotes claimNotesFor(const MarkerPlace& place);

} // namespace lorvan

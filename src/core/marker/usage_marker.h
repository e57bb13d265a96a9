#pragma once

#include "platform/machine_identity.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <stdexcept>

namespace lorvan {

/// The marker file cannot be opened, locked, read or written. what() names the file and the system's reason.
class MarkerError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Who holds a marker, and since when: the time of its file according to the computer that stores it.
struct MarkerHolder {
    MachineIdentity identity;
    QDateTime since;
};

/// The usage marker lorvan.dat: which of the computers that share the data folder is changing the data. One record of
/// 51 bytes in Windows-1253: state ("1" in use, "0" free), user and computer, 25 characters each, padded with blanks.
///
/// Every operation opens the file (a missing one is made, empty; a link is refused), locks it for the whole
/// read-modify-write and closes it again. A record whose state is neither "0" nor "1" cannot be claimed and keeps
/// nobody from changing data. All operations throw MarkerError.
///
/// A claim that fails leaves the marker free, or owned by this instance until a release succeeds. Each claim leaves a
/// note (see claim_note.h) until it is released, so that a later start can release the marker of a program that was
/// killed.
class UsageMarker {
public:
    UsageMarker(QString path, MachineIdentity self);

    /// Marks the data as in use by this user and computer if the marker is free. Returns owns().
    bool claim();

    /// If this instance owns the marker, makes it free and keeps this user and computer in it. A marker that somebody
    /// else has claimed in the meantime (after an unlock) is left alone.
    void release();

    /// Releases for good: an action still running when the program ends can no longer claim the marker.
    void retire();

    /// Who keeps this instance from changing data; no value if nobody does. Never claims.
    [[nodiscard]] std::optional<MachineIdentity> heldByAnother();

    /// Called before data are changed: claims a free marker, and returns the holder who prevents the change, if there
    /// is one.
    [[nodiscard]] std::optional<MachineIdentity> guardChange();

    /// Releases a marker that is in use by this user and computer if a note of that claim names a process that is no
    /// longer alive. Returns true if it did; without a note it is left to the administrator to release the marker.
    bool heal();

    /// True if a valid marker says that nobody holds it; false also if it cannot be read. Does not lock.
    [[nodiscard]] static bool isUnclaimed(const QString& path);

    /// Who holds the marker right now, this program or another; no value if nobody does. Does not lock, and may be
    /// called in any thread. The answer may be wrong if a program is writing the marker at that moment.
    [[nodiscard]] static std::optional<MarkerHolder> look(const QString& path);

    /// True if such a look shows the claim of this instance.
    [[nodiscard]] bool isOwn(const MarkerHolder& seen) const;

    /// Makes a free marker without names for a new book.
    static void create(const QString& path);

    /// Makes the marker free, whoever holds it, leaving the names as they are.
    static void unlock(const QString& path);

    [[nodiscard]] bool owns() const { return m_owns; }

private:
    class LockedFile;

    void write(LockedFile& file);
    void takeBack(LockedFile& file) noexcept;
    void lose() noexcept;

    QString m_path;
    MachineIdentity m_self;
    QString m_note; ///< Of the claim; empty if none could be left.
    bool m_owns = false;
    bool m_isConfirmed = false; ///< The disk has the claim.
    bool m_retired = false;
};

/// The main window's caption: "Lorvan", with the holder's user and computer if somebody else is using the book.
[[nodiscard]] QString markerCaption(const std::optional<MachineIdentity>& holder);

/// "Η βάση χρησιμοποιήτε από τον (την) … στον Η/Υ …".
[[nodiscard]] QString markerRefusal(const MachineIdentity& holder);

} // namespace lorvan

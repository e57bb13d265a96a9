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

/// Who holds a marker, and since when: the time of its file, as the computer says that keeps the file.
struct MarkerHolder {
    MachineIdentity identity;
    QDateTime since;
};

/// The usage marker lorvan.dat: which one of the computers that share the data folder changes the data. One record of
/// 51 bytes in Windows-1253: state ("1" in use, "0" free), user and computer, 25 characters each, blanks behind.
///
/// Every operation opens the file (a missing one is created empty; a link is refused), locks it for the whole of its
/// read-modify-write and closes it again. A record whose state is neither "0" nor "1" is never claimed and refuses
/// nobody. All operations throw MarkerError.
///
/// A claim that fails leaves the marker free, or owned by this instance until a release succeeds. Each claim leaves a
/// note (see claim_note.h) until the release, by which a later start takes back the marker of a program that was
/// killed.
class UsageMarker {
public:
    UsageMarker(QString path, MachineIdentity self);

    /// Writes the marker as in use by this user and computer if it is free. Returns owns().
    bool claim();

    /// Writes the marker free, keeping this user and computer in it, if this instance owns it. A marker that somebody
    /// else has claimed since (after an unlock) is left alone.
    void release();

    /// Releases for good: whatever was under way when the program was ended claims nothing any more.
    void retire();

    /// Who keeps this instance from changing data; empty when nobody does. Never claims.
    [[nodiscard]] std::optional<MachineIdentity> heldByAnother();

    /// Before a change of data: claims a free marker, and returns the holder who forbids the change, if there is one.
    [[nodiscard]] std::optional<MachineIdentity> guardChange();

    /// Takes back a marker that is in use by this user and computer, where a note of that claim names a process that
    /// lives no more. True when it was; without a note the marker is left to the administrator.
    bool heal();

    /// True where a valid marker says that nobody holds it; false also where it cannot be read. Does not lock.
    [[nodiscard]] static bool isUnclaimed(const QString& path);

    /// Who holds the marker just now, this program or another; empty when nobody does. Does not lock, and may be called
    /// on any thread. What it says of a program that is writing the marker at that moment may be wrong.
    [[nodiscard]] static std::optional<MarkerHolder> look(const QString& path);

    /// True when such a look shows the claim of this instance.
    [[nodiscard]] bool isOwn(const MarkerHolder& seen) const;

    /// Makes a free marker without names for a new book.
    static void create(const QString& path);

    /// Makes the marker free whoever holds it, leaving the names as they are.
    static void unlock(const QString& path);

    [[nodiscard]] bool owns() const { return m_owns; }

private:
    class LockedFile;

    void write(LockedFile& file);
    void takeBack(LockedFile& file) noexcept;
    void lose() noexcept;

    QString m_path;
    MachineIdentity m_self;
    QString m_note; ///< Of the claim; empty where none could be left.
    bool m_owns = false;
    bool m_isConfirmed = false; ///< The disk has the claim.
    bool m_retired = false;
};

/// The main window's caption: "Lorvan", with the holder's user and computer where another one works.
[[nodiscard]] QString markerCaption(const std::optional<MachineIdentity>& holder);

/// "Η βάση χρησιμοποιήτε από τον (την) … στον Η/Υ …".
[[nodiscard]] QString markerRefusal(const MachineIdentity& holder);

} // namespace lorvan

#pragma once

#include <QString>

namespace lorvan {

/// The user and the computer, as other computers see them in the usage marker.
struct MachineIdentity {
    QString user;
    QString computer;
};

/// Asks only the operating system (account name, host name). Each name ends at its first NUL; a name that cannot be
/// found out is "Ανώνυμος".
[[nodiscard]] MachineIdentity machineIdentity();

} // namespace lorvan

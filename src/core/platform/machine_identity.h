#pragma once

#include <QString>

namespace lorvan {

/// Who sits at which computer, as other computers see it in the usage marker.
struct MachineIdentity {
    QString user;
    QString computer;
};

/// Asks the operating system alone (account name, host name). Each name is cut at its first NUL; one that cannot be
/// had is "Ανώνυμος".
[[nodiscard]] MachineIdentity machineIdentity();

} // namespace lorvan

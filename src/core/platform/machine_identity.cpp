#include "platform/machine_identity.h"

#include <array>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace lorvan {
namespace {

QString orAnonymous(const QString& name)
{
    const QString cut = name.section(QChar(u'\0'), 0, 0).trimmed();
    return cut.isEmpty() ? QStringLiteral("Ανώνυμος") : cut;
}

QString accountName()
{
    std::vector<char> buffer(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE)
        buffer.resize(buffer.size() * 2);
    return found ? QString::fromLocal8Bit(found->pw_name) : QString();
}

QString hostName()
{
    std::array<char, 256> buffer{};
    return gethostname(buffer.data(), buffer.size() - 1) == 0 ? QString::fromLocal8Bit(buffer.data()) : QString();
}

} // namespace

MachineIdentity machineIdentity()
{
    return {orAnonymous(accountName()), orAnonymous(hostName())};
}

} // namespace lorvan

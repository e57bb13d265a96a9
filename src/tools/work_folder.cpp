#include "tools/work_folder.h"

#include <QFileInfo>
#include <QSysInfo>

#include <exception>
#include <sys/file.h>

namespace lorvan {
namespace {

constexpr qsizetype randomLength = 16; // as Folder::makeWorkFolder() appends it

bool isName(const QString& name, const QString& prefix)
{
    return name.startsWith(prefix) && name.size() == prefix.size() + randomLength;
}

} // namespace

QString workFolderPrefix(const QString& purpose)
{
    return purpose + QSysInfo::machineHostName() + u'-';
}

bool isLocked(const Folder& work)
{
    return ::flock(work.descriptor(), LOCK_EX | LOCK_NB) == 0;
}

void removeWorkFolder(const Folder& place, const Folder& work) noexcept
{
    try {
        place.removeTree(QFileInfo(work.path()).fileName());
    } catch (const std::exception&) { // it is empty of what matters, and hidden
    }
}

void removeWorkFolders(
    const Folder& place, const QString& prefix, const std::function<void(const Folder& work)>& before)
{
    for (const QString& name : place.names()) {
        if (!isName(name, prefix) || place.kindOf(name) != Folder::Kind::Folder)
            continue;
        const Folder work = place.openFolder(name);
        if (!isLocked(work))
            continue;
        if (before)
            before(work);
        place.removeTree(name);
    }
}

} // namespace lorvan

#include "app/work_folder.h"

#include "platform/file_error.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSysInfo>

#include <sys/file.h>

namespace lorvan {
namespace {

constexpr auto lockName = "lock";

/// Earlier releases gave other names, and locked the folder itself.
bool wasLeftByEarlierRelease(const Folder& parent, const QString& name, const QString& prefix)
{
    static const QRegularExpression ending(QStringLiteral("\\A[0-9A-Za-z]{6}\\z"));
    return name.startsWith(prefix) && ending.match(name.mid(prefix.size())).hasMatch()
        && parent.kindOf(name) == Folder::Kind::Folder
        && ::flock(parent.openFolder(name).descriptor(), LOCK_EX | LOCK_NB) == 0;
}

} // namespace

/// Whoever clears up may take a folder for abandoned before its lock is there: then another one is made.
WorkFolder::WorkFolder(const Folder& parent, const QString& prefix)
    : m_parent(parent)
{
    constexpr int mostAttempts = 5;
    for (int attempt = 1; !m_lock; ++attempt) {
        m_folder = parent.makeWorkFolder(prefix);
        try {
            m_lock.emplace(*m_folder, QLatin1String(lockName));
        } catch (const LockRefused&) {
            m_parent.removeEmpty(name());
            if (attempt == mostAttempts)
                throw;
        }
    }
}

WorkFolder::~WorkFolder()
{
    if (m_isKept)
        return;
    try {
        remove();
        m_parent.sync();
    } catch (const std::exception&) {
        // The next one that is made here removes it.
    }
}

QString WorkFolder::name() const
{
    return QFileInfo(m_folder->path()).fileName();
}

void WorkFolder::remove()
{
    m_parent.removeTree(name());
    m_isKept = true;
}

void WorkFolder::keepAs(const QString& newName)
{
    m_parent.rename(name(), m_parent, newName, Folder::Taken::Replace);
    m_isKept = true;
    try {
        m_folder->remove(QLatin1String(lockName)); // only now: without its lock it might be taken for abandoned
    } catch (const FileError&) {
        // An empty file more.
    }
    m_folder->confirm();
}

QString WorkFolder::prefixHere(const QString& purpose)
{
    return purpose + QSysInfo::machineHostName() + u'-';
}

bool WorkFolder::isName(const QString& name, const QString& prefix)
{
    static const QRegularExpression digits(QStringLiteral("\\A[0-9a-f]{16}\\z"));
    return name.startsWith(prefix) && digits.match(name.mid(prefix.size())).hasMatch();
}

void WorkFolder::removeIfAbandoned(
    const Folder& parent, const QString& name, const std::function<bool(const QString& name)>& mayGo) noexcept
{
    try {
        if (parent.kindOf(name) != Folder::Kind::Folder)
            return;
        const FileLock lock(parent.openFolder(name), QLatin1String(lockName));
        if (!mayGo || mayGo(name))
            parent.removeTree(name);
    } catch (const std::exception&) {
        // In use, or none of ours.
    }
}

void WorkFolder::removeAbandoned(
    const Folder& parent, const QString& prefix, const std::function<bool(const QString& name)>& mayGo) noexcept
{
    try {
        for (const QString& name : parent.names()) {
            if (isName(name, prefix) || wasLeftByEarlierRelease(parent, name, prefix))
                removeIfAbandoned(parent, name, mayGo);
        }
    } catch (const std::exception&) {
        // They do no harm.
    }
}

} // namespace lorvan

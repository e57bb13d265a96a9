#include "platform/files/work_folder.h"

#include "platform/files/file.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSysInfo>

#include <sys/file.h>

namespace lorvan {
namespace {

constexpr auto lockName = "lock";

/// Earlier releases used other names, and locked the folder itself.
bool wasLeftByEarlierRelease(const Folder& parent, const QString& name, const QString& prefix)
{
    static const QRegularExpression ending(QStringLiteral("\\A[0-9A-Za-z]{6}\\z"));
    return name.startsWith(prefix) && ending.match(name.mid(prefix.size())).hasMatch()
        && parent.kindOf(name) == Folder::Kind::Folder
        && ::flock(parent.openFolder(name).descriptor(), LOCK_EX | LOCK_NB) == 0;
}

/// Returns those that stay.
QStringList removeAllBut(const QStringList& wanted, const Folder& folder)
{
    QStringList staying;
    for (const QString& name : folder.names()) {
        try {
            if (!wanted.contains(name))
                folder.removeTree(name);
        } catch (const FileError&) {
            staying += name;
        }
    }
    return staying;
}

} // namespace

/// A clean-up may consider the folder abandoned before it is locked: then another one is made.
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
        // The next folder made here removes it.
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

QStringList WorkFolder::keepAs(const QString& newName, const QStringList& wanted)
{
    // The lock's file stays until then: without it this folder might be considered abandoned.
    const QString lock = QLatin1String(lockName);
    (void)removeAllBut(wanted + QStringList(lock), *m_folder);
    m_parent.rename(name(), m_parent, newName, Folder::Taken::Replace);
    m_isKept = true;
    m_lock.reset(); // some shares rename a file that is removed while it is open
    QStringList staying;
    try {
        staying = removeAllBut(wanted, *m_folder);
    } catch (const FileError&) {
        staying = {lock};
    }
    m_folder->confirm();
    return staying;
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
        // In use, or not ours.
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

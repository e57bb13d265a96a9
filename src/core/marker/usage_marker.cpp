#include "marker/usage_marker.h"

#include "marker/claim_note.h"
#include "platform/files/file.h"
#include "platform/files/file_lock.h"
#include "platform/stop_check.h"
#include "platform/windows1253.h"

#include <QByteArray>
#include <QFileInfo>

#include <chrono>
#include <utility>

namespace lorvan {
namespace {

constexpr qsizetype nameLength = 25;
constexpr qsizetype recordLength = 1 + 2 * nameLength;
constexpr char inUse = '1';
constexpr char isFree = '0';
constexpr std::chrono::seconds lockTimeout{5};

struct Record {
    char state = ' ';
    QByteArray user;
    QByteArray computer;

    friend bool operator==(const Record&, const Record&) = default;
};

QByteArray field(const QString& name)
{
    return toWindows1253(name).leftJustified(nameLength, ' ', true);
}

Record recordOf(char state, const MachineIdentity& identity)
{
    return {state, field(identity.user), field(identity.computer)};
}

QString nameIn(const QByteArray& field)
{
    QString name = fromWindows1253(field);
    while (name.endsWith(u' ') || name.endsWith(QChar(u'\0')))
        name.chop(1);
    return name;
}

/// Runs work on the file, turning its errors into MarkerError.
template <typename Work> auto onMarker(const Work& work)
{
    try {
        return work();
    } catch (const FileError& error) {
        throw MarkerError(error.what());
    } catch (const LockRefused& refusal) {
        throw MarkerError(refusal.what());
    }
}

/// A short or empty file yields a record without a known state.
Record recordIn(File& file)
{
    file.seek(0);
    const QByteArray bytes = file.read(recordLength).leftJustified(recordLength, ' ');
    return {bytes.front(), bytes.sliced(1, nameLength), bytes.sliced(1 + nameLength)};
}

MachineIdentity holderIn(const Record& record)
{
    return {nameIn(record.user), nameIn(record.computer)};
}

void removeNotes(const QStringList& names)
{
    for (const QString& name : names)
        removeClaimNote(name);
}

} // namespace

/// The marker file, open and locked against every other process for the lifetime of the object. The operations throw
/// FileError.
class UsageMarker::LockedFile {
public:
    /// Throws FileError and LockRefused.
    explicit LockedFile(const QString& path)
        : m_folder(QFileInfo(path).path())
        , m_lock(m_folder, QFileInfo(path).fileName(), FileLock::Missing::Make, lockTimeout, FileAccess::LikeFolder)
        , m_isNew(m_lock.file().size() == 0)
    {
    }

    [[nodiscard]] MarkerPlace place() { return {m_folder.path(), m_lock.file().status().st_ino}; }

    [[nodiscard]] Record read() { return recordIn(m_lock.file()); }

    void write(const Record& record)
    {
        m_lock.file().seek(0);
        m_lock.file().write(record.state + record.user + record.computer);
        m_lock.file().sync();
        if (std::exchange(m_isNew, false))
            m_folder.sync();
    }

private:
    Folder m_folder;
    FileLock m_lock;
    bool m_isNew;
};

UsageMarker::UsageMarker(QString path, MachineIdentity self)
    : m_path(std::move(path))
    , m_self(std::move(self))
{
}

bool UsageMarker::claim()
{
    (void)guardChange();
    return m_owns;
}

std::optional<MachineIdentity> UsageMarker::guardChange()
{
    return onMarker([this]() -> std::optional<MachineIdentity> {
        LockedFile file(m_path);
        const Record record = file.read();
        const Record own = recordOf(inUse, m_self);
        if (record.state == inUse && record != own)
            lose(); // an unlock may have let somebody else claim it
        if (!m_retired && (record.state == isFree || (m_owns && !m_isConfirmed)))
            write(file);
        if (record.state != inUse || m_owns)
            return std::nullopt;
        return holderIn(record);
    });
}

/// Whatever fails, the marker is then either free or ours to release.
void UsageMarker::write(LockedFile& file)
{
    if (m_note.isEmpty()) {
        removeNotes(claimNotesFor(file.place()).ofTheDead); // the marker was free after them
        m_note = leaveClaimNote(file.place()).value_or(QString());
    }
    m_owns = true;
    m_isConfirmed = false;
    try {
        file.write(recordOf(inUse, m_self));
        m_isConfirmed = true;
    } catch (const FileError&) {
        takeBack(file);
        throw;
    }
}

void UsageMarker::takeBack(LockedFile& file) noexcept
{
    try {
        file.write(recordOf(isFree, m_self));
        lose();
    } catch (const FileError&) {
        // Stays ours: the release tries again.
    }
}

void UsageMarker::lose() noexcept
{
    m_owns = false;
    if (!m_note.isEmpty())
        removeClaimNote(std::exchange(m_note, {}));
}

void UsageMarker::release()
{
    if (!m_owns)
        return;
    const Undisturbed undisturbed;
    onMarker([this] {
        LockedFile file(m_path);
        const Record record = file.read();
        const bool handedOn = record.state == inUse && record != recordOf(inUse, m_self);
        if (!handedOn)
            file.write(recordOf(isFree, m_self));
    });
    lose();
}

void UsageMarker::retire()
{
    m_retired = true;
    release();
}

std::optional<MachineIdentity> UsageMarker::heldByAnother()
{
    const Record record = onMarker([this] { return LockedFile(m_path).read(); });
    if (record.state != inUse)
        return std::nullopt;
    if (m_owns && record != recordOf(inUse, m_self))
        lose();
    if (m_owns)
        return std::nullopt;
    return holderIn(record);
}

bool UsageMarker::heal()
{
    return onMarker([this] {
        LockedFile file(m_path);
        const ClaimNotes notes = claimNotesFor(file.place());
        const Record record = file.read();
        const bool isOurs = record == recordOf(inUse, m_self);
        if (!isOurs)
            removeNotes(notes.ofTheDead);
        if (!isOurs || notes.ofTheDead.isEmpty() || !notes.ofTheLiving.isEmpty())
            return false;
        const auto own = leaveClaimNote(file.place()); // for a start that finds it half done
        if (!own)
            return false;
        file.write(recordOf(isFree, m_self));
        removeNotes(notes.ofTheDead);
        removeClaimNote(*own);
        return true;
    });
}

std::optional<MarkerHolder> UsageMarker::look(const QString& path)
{
    return onMarker([&]() -> std::optional<MarkerHolder> {
        const QFileInfo info(path);
        File file = Folder(info.path()).open(info.fileName(), Folder::Opening::Read);
        const Record record = recordIn(file);
        if (record.state != inUse)
            return std::nullopt;
        return MarkerHolder{holderIn(record), QDateTime::fromSecsSinceEpoch(file.status().st_mtim.tv_sec)};
    });
}

bool UsageMarker::isOwn(const MarkerHolder& seen) const
{
    return m_owns && recordOf(inUse, seen.identity) == recordOf(inUse, m_self);
}

bool UsageMarker::isUnclaimed(const QString& path)
{
    try {
        const QFileInfo info(path);
        File file = Folder(info.path()).open(info.fileName(), Folder::Opening::Read);
        return recordIn(file).state == isFree;
    } catch (const FileError&) {
        return false;
    }
}

void UsageMarker::create(const QString& path)
{
    onMarker([&] { LockedFile(path).write(recordOf(isFree, {})); });
}

void UsageMarker::unlock(const QString& path)
{
    onMarker([&] {
        LockedFile file(path);
        Record record = file.read();
        record.state = isFree;
        file.write(record);
    });
}

QString markerCaption(const std::optional<MachineIdentity>& holder)
{
    const QString name = QStringLiteral("Lorvan");
    return holder ? name + QStringLiteral("  -  ") + markerRefusal(*holder) : name;
}

QString markerRefusal(const MachineIdentity& holder)
{
    return QStringLiteral("Η βάση χρησιμοποιήτε από τον (την) ") + holder.user + QStringLiteral(" στον Η/Υ ")
        + holder.computer;
}

} // namespace lorvan

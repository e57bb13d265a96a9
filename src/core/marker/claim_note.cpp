#include "marker/claim_note.h"

#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <unistd.h>

namespace lorvan {
namespace {

constexpr qint64 longestNote = 64 * 1024;

QString stateFolder()
{
    QString base = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    if (!base.startsWith(u'/')) {
        const QString home = QFile::decodeName(qgetenv("HOME"));
        base = home.startsWith(u'/') ? home + QStringLiteral("/.local/state") : QString();
    }
    return base.isEmpty() ? base : base + QStringLiteral("/Lorvan/claims");
}

/// The files of /proc and /sys have no size.
QString systemText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

/// In clock ticks since the system's start; empty if there is no such process.
QString startTime(qint64 process)
{
    constexpr int fieldBehindName = 19; // field 22, counted from field 3
    const QString status = systemText(QStringLiteral("/proc/%1/stat").arg(process));
    return status.mid(status.lastIndexOf(u')') + 2).section(u' ', fieldBehindName, fieldBehindName);
}

struct Claimant {
    QString machine;
    QString boot;
    QString processes; ///< The namespace of the process's number.
    qint64 process = 0;
    QString started;

    static Claimant self()
    {
        return {systemText(QStringLiteral("/etc/machine-id")),
            systemText(QStringLiteral("/proc/sys/kernel/random/boot_id")),
            QFileInfo(QStringLiteral("/proc/self/ns/pid")).symLinkTarget(), ::getpid(), startTime(::getpid())};
    }
    [[nodiscard]] bool isKnown() const { return !machine.isEmpty() && !boot.isEmpty() && !started.isEmpty(); }
    [[nodiscard]] bool isDead(const Claimant& self) const
    {
        if (boot != self.boot)
            return true;
        return processes == self.processes && startTime(process) != started;
    }
};

QByteArray noteText(const MarkerPlace& place, const Claimant& claimant)
{
    return QJsonDocument(
        QJsonObject{{QStringLiteral("folder"), place.folder}, {QStringLiteral("inode"), QString::number(place.inode)},
            {QStringLiteral("machine"), claimant.machine}, {QStringLiteral("boot"), claimant.boot},
            {QStringLiteral("processes"), claimant.processes},
            {QStringLiteral("process"), QString::number(claimant.process)},
            {QStringLiteral("started"), claimant.started}})
        .toJson();
}

struct Note {
    MarkerPlace place;
    Claimant claimant;
};

Note readNote(const Folder& folder, const QString& name)
{
    const QJsonObject text =
        QJsonDocument::fromJson(folder.open(name, Folder::Opening::Read).read(longestNote)).object();
    const auto field = [&](const char* key) { return text.value(QLatin1String(key)).toString(); };
    return {{field("folder"), field("inode").toULongLong()},
        {field("machine"), field("boot"), field("processes"), field("process").toLongLong(), field("started")}};
}

void writeNote(const Folder& folder, const QString& name, const QByteArray& text)
{
    try {
        File file = folder.open(name, Folder::Opening::MakeNew, FileAccess::Owner);
        file.write(text);
        file.sync();
        folder.sync();
    } catch (const FileError&) {
        removeClaimNote(name);
        throw;
    }
}

} // namespace

std::optional<QString> leaveClaimNote(const MarkerPlace& place)
{
    const Claimant self = Claimant::self();
    const QString path = stateFolder();
    if (path.isEmpty() || !self.isKnown())
        return std::nullopt;
    try {
        (void)makeFolders(path, FileAccess::Owner);
        const QString name = QString::number(QRandomGenerator::system()->generate64(), 16);
        writeNote(Folder(path), name, noteText(place, self));
        return name;
    } catch (const FileError&) {
        return std::nullopt;
    }
}

void removeClaimNote(const QString& name) noexcept
{
    try {
        Folder(stateFolder()).remove(name);
    } catch (const FileError&) {
        // The next start looks again.
    }
}

ClaimNotes claimNotesFor(const MarkerPlace& place)
{
    ClaimNotes found;
    const Claimant self = Claimant::self();
    if (stateFolder().isEmpty() || !QFileInfo(stateFolder()).isDir() || !self.isKnown())
        return found;
    try {
        const Folder folder(stateFolder());
        for (const QString& name : folder.names()) {
            const Note note = readNote(folder, name);
            if (note.place == place && note.claimant.machine == self.machine)
                (note.claimant.isDead(self) ? found.ofTheDead : found.ofTheLiving) += name;
        }
    } catch (const FileError&) {
        found.ofTheDead.clear(); // nothing is certain
    }
    return found;
}

} // namespace lorvan

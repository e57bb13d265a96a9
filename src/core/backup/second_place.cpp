#include "backup/second_place.h"

#include "backup/book_backup.h"
#include "backup/copy_writing.h"
#include "book/book_files.h"
#include "platform/files/work_folder.h"
#include "platform/stop_check.h"
#include "platform/work.h"
#include "platform/work_watch.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace lorvan {
namespace {

constexpr qint64 megabyte = 1 << 20;
const QString section = QStringLiteral("SecondPlace");
const QString workPurpose = QStringLiteral(".lorvan-copy-");
const QString copyName = QStringLiteral("copy");

/// A path may hold characters that a key cannot.
QString keyOf(const QString& dataFolder)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(dataFolder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16));
}

void copyContent(File& from, File& to)
{
    from.seek(0);
    for (;;) {
        continueOrGiveUp();
        const QByteArray part = from.read(megabyte);
        if (part.isEmpty())
            return;
        to.write(part);
    }
}

bool isSame(File& one, File& other)
{
    one.seek(0);
    other.seek(0);
    for (;;) {
        continueOrGiveUp();
        const QByteArray part = one.read(megabyte);
        if (part != other.read(megabyte))
            return false;
        if (part.isEmpty())
            return true;
    }
}

void refuseOther(const Folder& folder, const QString& name, File& backup)
{
    File present = folder.open(name, Folder::Opening::Read);
    if (!isSame(backup, present))
        throw BookCopyFailed(folder.pathOf(name), QStringLiteral("υπάρχει ήδη και είναι άλλο."));
}

void copyInto(const Folder& folder, const QString& name, File& backup)
{
    WorkFolder::removeAbandoned(folder, WorkFolder::prefixHere(workPurpose));
    WorkFolder work(folder, WorkFolder::prefixHere(workPurpose));
    refuseWithoutRoom(folder, backup.size());
    {
        File copy = work.folder().open(copyName, Folder::Opening::MakeNew, FileAccess::Owner);
        copyContent(backup, copy);
        copy.sync();
        if (!isSame(backup, copy))
            throw BookCopyFailed(folder.pathOf(name), QStringLiteral("δεν διαβάζεται όπως γράφτηκε."));
    }
    decideOrGiveUp();
    work.folder().rename(copyName, folder, name);
    folder.confirm();
}

void refuseUnwritable(const QString& place)
{
    const QString refusal = QStringLiteral("Στον φάκελο %1 δεν γράφεται αντίγραφο: %2.");
    try {
        const Folder folder(place);
        const WorkFolder trial(folder, WorkFolder::prefixHere(workPurpose));
    } catch (const FileError& error) {
        throw Refused(refusal.arg(place, error.reason()));
    } catch (const LockRefused& error) {
        throw Refused(refusal.arg(place, QString::fromUtf8(error.what())));
    }
}

} // namespace

SecondPlace::SecondPlace(const BookFiles& book, SettingsStore store)
    : m_dataFolder(book.dataFolder())
    , m_store(std::move(store))
{
}

QString SecondPlace::folder() const
{
    return m_store.value(section, keyOf(m_dataFolder), {});
}

bool SecondPlace::isThere() const
{
    const QString chosen = folder();
    return !chosen.isEmpty() && QFileInfo(chosen).isDir();
}

void SecondPlace::choose(const QString& folder) const
{
    if (!folder.isEmpty()) {
        const QString real = QFileInfo(folder).canonicalFilePath();
        const QString own = QFileInfo(m_dataFolder).canonicalFilePath();
        if (real.isEmpty() || !QFileInfo(real).isDir())
            throw Refused(QStringLiteral("Ο φάκελος %1 δεν υπάρχει.").arg(folder));
        if (real == own || real.startsWith(own + u'/'))
            throw Refused(
                QStringLiteral("Ο φάκελος %1 είναι μέσα στον φάκελο του βιβλίου και θα χαθεί μαζί του. Διαλέξτε"
                               " έναν σε άλλο δίσκο.")
                    .arg(folder));
        refuseUnwritable(real);
    }
    m_store.write({{section, keyOf(m_dataFolder), folder}});
}

void copyBackup(const QString& backup, const QString& folder)
{
    const QFileInfo file(backup);
    beginStep(QStringLiteral("Γράφεται και το δεύτερο αντίγραφο…"));
    try {
        asCopy([&] {
            File from = Folder(file.absolutePath()).open(file.fileName(), Folder::Opening::Read);
            const Folder to(folder);
            if (to.exists(file.fileName()))
                refuseOther(to, file.fileName(), from);
            else
                copyInto(to, file.fileName(), from);
        });
    } catch (const LockRefused& refusal) {
        throw BookCopyFailed(folder, QString::fromUtf8(refusal.what()));
    }
}

MadeBackup makeBackups(
    const BookFiles& book, KeyRing& keys, const QDateTime& now, const SecondPlace& second, const StepProgress& progress)
{
    MadeBackup backup;
    const bool isSecondThere = second.isThere();
    {
        std::optional<PartOfWork> first;
        if (isSecondThere)
            first.emplace(QStringLiteral("Γράφεται και ελέγχεται το αντίγραφο…"));
        backup.path = makeBackupByHand(book, keys, now, progress);
    }
    if (!isSecondThere)
        return backup;
    const qint64 whole = (QFileInfo(backup.path).size() / megabyte + 1) * 2; // written and read back
    qint64 done = 0;
    const StopCheck counting([&] {
        progress(std::min(++done, whole), whole);
        return true;
    });
    try {
        copyBackup(backup.path, second.folder());
        backup.second = second.folder();
    } catch (const BookCopyFailed& failure) {
        backup.trouble = QString::fromUtf8(failure.what());
    } catch (const GivenUp&) {
        backup.isSecondGivenUp = true;
    }
    return backup;
}

void removeBackups(const QStringList& names, const QString& folder) noexcept
{
    try {
        const Folder place(folder);
        for (const QString& name : names)
            place.remove(name);
        place.sync();
    } catch (const std::exception&) {
        // They do no harm.
    }
}

} // namespace lorvan

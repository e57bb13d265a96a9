#include "book/opened_book.h"

#include "book/book_recovery.h"
#include "book/lock_trust.h"
#include "book/pending_restore.h"
#include "book/schema_guard.h"
#include "book/schema_upgrade.h"
#include "marker/usage_marker.h"
#include "platform/work.h"

namespace lorvan {

void refuseIncompleteBook(const BookFiles& files)
{
    for (const QString& path : {files.mainDatabase(), files.auxiliaryDatabase()}) {
        if (!BookFiles::exists(path))
            throw Refused(
                QStringLiteral("Στον φάκελο %1 δεν υπάρχει βιβλίο: λείπει το %2.").arg(files.dataFolder(), path));
    }
    if (files.isOldFormat())
        throw Refused(QStringLiteral("Το βιβλίο στον φάκελο %1 είναι στην παλιά μορφή. Μεταφέρετέ το πρώτα με την"
                                     " εντολή lorvan-data import.")
                          .arg(files.dataFolder()));
}

void readyBook(const BookFiles& files)
{
    finishRestore(files);
    refuseIncompleteBook(files);
    KeyRing keys(bookPassword());
    UsageMarker marker(files.usageMarker(), machineIdentity());
    recoverBook(files, keys, marker);
}

OpenedBook::OpenedBook(const QString& folder, Connection::Access access)
    : m_files(folder)
    , m_keys(bookPassword())
    , m_connection(open(access))
{
}

Connection OpenedBook::open(Connection::Access access)
{
    readyBook(m_files);
    m_keys.prepare(m_files.auxiliaryDatabase());
    const FileKey mainKey = m_keys.keyFor(m_files.mainDatabase());
    const FileKey auxiliaryKey = m_keys.keyFor(m_files.auxiliaryDatabase());
    Connection connection =
        Connection::open(m_files.mainDatabase(), mainKey, access, Connection::usualPatience, lockReachOf(m_files));
    refuseForeignObjects(connection);
    if (needsUpgrade(connection))
        throw Refused(QStringLiteral("Το βιβλίο στον φάκελο %1 είναι παλαιότερης έκδοσης. Ανοίξτε το μία φορά με το"
                                     " πρόγραμμα, για να αναβαθμιστεί.")
                          .arg(m_files.dataFolder()));
    connection.attach(m_files.auxiliaryDatabase(), auxiliaryKey, QStringLiteral("auxiliary"));
    refuseForeignObjects(connection);
    return connection;
}

} // namespace lorvan

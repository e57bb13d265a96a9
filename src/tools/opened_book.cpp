#include "tools/opened_book.h"

#include "app/pending_restore.h"
#include "app/schema_upgrade.h"
#include "tools/refused.h"

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

OpenedBook::OpenedBook(const QString& folder)
    : m_files(folder)
    , m_keys(bookPassword())
    , m_connection(open())
{
}

Connection OpenedBook::open()
{
    finishRestore(m_files);
    refuseIncompleteBook(m_files);
    m_keys.prepare(m_files.auxiliaryDatabase());
    const FileKey mainKey = m_keys.keyFor(m_files.mainDatabase());
    const FileKey auxiliaryKey = m_keys.keyFor(m_files.auxiliaryDatabase());
    Connection connection = Connection::open(m_files.mainDatabase(), mainKey, Connection::Access::ReadWrite);
    if (needsUpgrade(connection))
        throw Refused(QStringLiteral("Το βιβλίο στον φάκελο %1 είναι παλαιότερης έκδοσης. Ανοίξτε το μία φορά με το"
                                     " πρόγραμμα, για να αναβαθμιστεί.")
                          .arg(m_files.dataFolder()));
    connection.attach(m_files.auxiliaryDatabase(), auxiliaryKey, QStringLiteral("auxiliary"));
    return connection;
}

} // namespace lorvan

#include "csv/book_state.h"

#include "backup/copy_writing.h"
#include "backup/steady_copy.h"
#include "platform/engine/key_ring.h"
#include "platform/stop_check.h"

#include <QDir>

namespace lorvan {
namespace {

Connection openCopy(const QString& path, KeyRing& keys)
{
    return Connection::open(path, keys.keyForCopy(path), Connection::Access::ReadOnly);
}

} // namespace

BookState::BookState(const BookFiles& book, KeyRing& keys, const QString& folder, const StepProgress& progress)
    : m_keys(keys)
    , m_files(folder)
{
    if (!QDir().mkdir(m_files.dataFolder()))
        throw Refused(QStringLiteral("Ο φάκελος %1 δεν γράφεται.").arg(m_files.dataFolder()));
    try {
        const StopCheck showing([&progress] {
            progress(0, 1);
            return true;
        });
        copyBook(book, m_files, keys);
    } catch (const BookCopyFailed& failure) {
        throw Refused(QStringLiteral("Το αντίγραφο από το οποίο γίνεται η εξαγωγή δεν γράφεται. %1")
                          .arg(QString::fromUtf8(failure.what())));
    }
}

BookState::~BookState()
{
    QDir(m_files.dataFolder()).removeRecursively();
}

Connection BookState::openMain() const
{
    return openCopy(m_files.mainDatabase(), m_keys);
}

Connection BookState::openAuxiliary() const
{
    return openCopy(m_files.auxiliaryDatabase(), m_keys);
}

} // namespace lorvan

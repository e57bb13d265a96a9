#include "book/book.h"

#include "book/book_schema.h"
#include "book/lock_trust.h"
#include "marker/usage_marker.h"
#include "platform/engine/sql_error.h"
#include "platform/files/durable_files.h"

#include <QFile>

#include <initializer_list>
#include <utility>

namespace lorvan {
namespace {

/// Removes the files of a book that was not completed.
class Undo {
public:
    explicit Undo(const BookFiles& files)
        : m_files(files)
    {
    }
    ~Undo()
    {
        if (m_kept)
            return;
        for (const QString& path : {m_files.mainDatabase(), m_files.auxiliaryDatabase(), m_files.usageMarker()})
            QFile::remove(path);
    }
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;
    void keep() { m_kept = true; }

private:
    const BookFiles& m_files;
    bool m_kept = false;
};

} // namespace

Book::Book(const BookFiles& files, KeyRing& keys, Connection::Access access)
    : m_source(Source{files, &keys, access})
    , m_main(openBookFile(m_source->files.mainDatabase(), keys, access))
    , m_auxiliary(openBookFile(m_source->files.auxiliaryDatabase(), keys, access))
{
}

Book::Book(Connection main, Connection auxiliary)
    : m_main(std::move(main))
    , m_auxiliary(std::move(auxiliary))
{
}

bool Book::setAccess(Connection::Access access)
{
    if (!m_source || m_source->access == access || isReplaced())
        return false;
    Connection main = openBookFile(m_source->files.mainDatabase(), *m_source->keys, access);
    Connection auxiliary = openBookFile(m_source->files.auxiliaryDatabase(), *m_source->keys, access);
    if (isReplaced())
        return false; // the names now belong to other files than those that are open
    m_main = std::move(main);
    m_auxiliary = std::move(auxiliary);
    m_source->access = access;
    return true;
}

void Book::ensureSchema(const OpeningSteps& steps)
{
    if (!m_main.isReadOnly())
        ensureMainSchema(m_main, m_auxiliary, steps);
    if (!m_auxiliary.isReadOnly())
        ensureAuxiliarySchema(m_auxiliary);
    if (!m_main.isReadOnly())
        steps.keepJournal(m_main, m_auxiliary);
}

Connection Book::openBoth() const
{
    return lorvan::openBoth(m_source.value().files, *m_source->keys, m_source->access);
}

bool Book::isReplaced() const
{
    try {
        refuseReplaced();
        return false;
    } catch (const SqlError&) {
        return true;
    }
}

void Book::refuseReplaced() const
{
    m_main.refuseReplaced();
    m_auxiliary.refuseReplaced();
}

void createBook(const BookFiles& files)
{
    for (const QString& path : {files.mainDatabase(), files.auxiliaryDatabase(), files.usageMarker()}) {
        if (QFile::exists(path))
            throw BookExists(path.toStdString());
    }
    makeFolders(files.dataFolder(), FileAccess::Owner);

    Undo undo(files);
    Connection auxiliary = Connection::create(files.auxiliaryDatabase(), bookPassword());
    createAuxiliarySchema(auxiliary);
    UsageMarker::create(files.usageMarker());
    // The main database comes last: a folder that contains one is a book.
    Connection main = Connection::create(files.mainDatabase(), bookPassword());
    createMainSchema(main);
    syncFolder(files.dataFolder());
    undo.keep();
}

} // namespace lorvan

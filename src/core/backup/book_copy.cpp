#include "backup/book_copy.h"

#include "backup/copy_writing.h"
#include "book/book_files.h"
#include "platform/engine/connection.h"

#include <QRegularExpression>

#include <utility>

namespace lorvan {
namespace {

const QString mainName = QStringLiteral("lorvan.mdb");
const QString auxiliaryName = QStringLiteral("mapcodes.mdb");
const QString partEnding = QStringLiteral(".part");

QString nameOfCopy(const QString& original, const QDateTime& at)
{
    return QStringLiteral("%1-%2.mdb")
        .arg(original.section(u'.', 0, 0), at.toString(QStringLiteral("yyyy-MM-dd-HHmmss")));
}

QDateTime firstFreeSecond(const Folder& folder, QDateTime at)
{
    while (folder.exists(nameOfCopy(mainName, at)) || folder.exists(nameOfCopy(auxiliaryName, at)))
        at = at.addSecs(1);
    return at;
}

/// Removes unfinished copies left by a crash. Nobody else copies this book now, since the caller has locked it.
void removeRemains(const Folder& folder)
{
    static const QRegularExpression form(QStringLiteral("\\A(lorvan|mapcodes)-[-0-9]+\\.mdb\\.part\\z"));
    for (const QString& name : folder.names()) {
        if (form.match(name).hasMatch() && folder.isFile(name))
            folder.remove(name);
    }
}

} // namespace

CopiedFile::CopiedFile(const Folder& folder, const QString& original, const QDateTime& at)
    : m_folder(folder)
    , m_original(original)
    , m_name(nameOfCopy(original, at))
    , m_current(m_name + partEnding)
{
}

CopiedFile::~CopiedFile()
{
    if (!m_isOurs)
        return;
    try {
        m_folder.remove(m_current);
        m_folder.sync();
    } catch (const FileError&) {
        // It is a complete copy, or one whose name tells the next copy to remove it.
    }
}

void CopiedFile::write(Connection& book, const QString& schema, KeyRing& keys)
{
    asCopy([&] {
        File file = m_folder.open(m_current, Folder::Opening::MakeNew);
        m_isOurs = true;
        if (const auto original = statusOf(m_folder, m_original))
            file.takeAccessOf(*original);
        book.readFile(schema, [&file](const QByteArray& block) {
            file.write(block);
            return true;
        });
        file.sync();
    });
    proveDatabase(m_folder.pathOf(m_current), keys);
}

void CopiedFile::complete()
{
    asCopy([this] { m_folder.rename(m_current, m_folder, m_name); });
    m_current = m_name;
}

BookCopy::BookCopy(Folder folder, const QDateTime& now)
    : m_folder(std::move(folder))
    , m_at(firstFreeSecond(m_folder, now))
    , m_main(m_folder, mainName, m_at)
    , m_auxiliary(m_folder, auxiliaryName, m_at)
{
}

BookCopy::BookCopy(Connection& book, const BookFiles& files, KeyRing& keys, const QDateTime& now)
    : BookCopy(asCopy([&] { return Folder(files.dataFolder()); }), now)
{
    asCopy([this] { removeRemains(m_folder); });
    m_main.write(book, QStringLiteral("main"), keys);
    m_auxiliary.write(book, QStringLiteral("auxiliary"), keys);
    m_auxiliary.complete();
    m_main.complete();
    asCopy([this] { m_folder.sync(); });
}

void BookCopy::keep()
{
    m_main.keep();
    m_auxiliary.keep();
}

} // namespace lorvan

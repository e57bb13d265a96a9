#include "durability/stored_state.h"

#include "book/pending_restore.h"
#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "platform/engine/transaction.h"
#include "proof/book_check.h"
#include "support/temporary_book.h"
#include "users/user_accounts.h"

#include <QDirIterator>
#include <QFile>

#include <filesystem>

namespace lorvan::test {
namespace {

const std::string trouble = "TROUBLE ";

std::string contentOf(Connection& book)
{
    // Times, and hashes that follow from them, differ in each run; whether they fit is for the check to find.
    const QStringList ofEachRun{"at", "computer", "previous", "journal", "hash", "balance_hash"};
    QByteArray all;
    for (const char* const schema : {"main", "auxiliary"}) {
        const QString tables = valueOf(book,
            "SELECT group_concat(name) FROM (SELECT name FROM " + std::string(schema)
                + ".sqlite_master WHERE type='table' ORDER BY name)");
        for (const QString& table : tables.split(u','))
            all += table.toUtf8() + '\n'
                + rowsOf(book, table, schema, table == "journal" || table == "seals" ? ofEachRun : QStringList());
    }
    return all.toStdString();
}

std::string findingsIn(Connection& book)
{
    BookFindings findings = checkFiles(book, [](std::int64_t, std::int64_t) {});
    if (findings.isInOrder())
        findings.merge(checkContent(book, [](std::int64_t, std::int64_t) {}).findings);
    return findings.isInOrder() ? std::string() : trouble + "findings\n";
}

std::string openedBook(const BookFiles& files)
{
    finishRestore(files);
    const bool hasMain = QFile::exists(files.mainDatabase());
    const bool hasRest = QFile::exists(files.auxiliaryDatabase()) && QFile::exists(files.usageMarker());
    if (!hasMain)
        return "no book";
    if (!hasRest)
        return trouble + "half a book";
    (void)openCopy(files.auxiliaryDatabase());
    Connection book = openCopy(files.mainDatabase());
    book.attach(files.auxiliaryDatabase(), testKeys().keyForCopy(files.auxiliaryDatabase()), "auxiliary");
    return findingsIn(book) + contentOf(book);
}

} // namespace

Book openBookToWrite(const QString& folder)
{
    return {openCopy(BookFiles(folder).mainDatabase()), openCopy(BookFiles(folder).auxiliaryDatabase())};
}

std::string storedBook(const QString& folder)
{
    try {
        return openedBook(BookFiles(folder));
    } catch (const std::exception& failure) {
        return trouble + failure.what();
    }
}

bool isWhole(const std::string& stored)
{
    return !stored.starts_with(trouble);
}

std::string storedFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
}

std::string remaindersIn(const QString& folder)
{
    std::string all;
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QFileInfo entry(entries.next());
        if (entry.fileName().startsWith(u'.') || entry.fileName().endsWith(".part"))
            all += ' ' + QDir(folder).relativeFilePath(entry.filePath()).toStdString();
    }
    return all;
}

void copyFolder(const QString& source, const QString& target)
{
    QDir(target).removeRecursively();
    std::filesystem::create_directories(target.toStdString());
    std::filesystem::copy(source.toStdString(), target.toStdString(), std::filesystem::copy_options::recursive);
}

void makeSmallBook(const QString& folder)
{
    const TemporaryBook book;
    book.addCode(300, "Ενοίκια", false, 1);
    book.addUser("Άννα", "κωδικός");
    book.close(QDate(2024, 3, 12));
    {
        Book open = book.open();
        CashBook cashBook(open, by());
        for (int i = 0; i < 10; ++i)
            (void)cashBook.insert(incomeOf(QDate(2024, 3, 13 + i % 3), cents(100 + i)));
    }
    copyFolder(book.folder(), folder);
}

} // namespace lorvan::test

#include "durability/stored_state.h"

#include "book/pending_restore.h"
#include "cashbook/book_check.h"
#include "cashbook/cash_book.h"
#include "cashbook/cash_closing.h"
#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"
#include "platform/engine/transaction.h"
#include "support/temporary_book.h"
#include "users/user_accounts.h"

#include <QDirIterator>
#include <QFile>

#include <sqlite3.h>

#include <stdexcept>

namespace lorvan::test {
namespace {

const std::string trouble = "TROUBLE ";

/// The results of a query, one line for each row.
std::vector<std::string> linesOf(Connection& book, const std::string& sql)
{
    std::vector<std::string> lines;
    const auto add = [](void* all, int count, char** values, char**) {
        std::string line;
        for (int i = 0; i < count; ++i)
            line += std::string(values[i] ? values[i] : "NULL") + '|';
        static_cast<std::vector<std::string>*>(all)->push_back(line);
        return 0;
    };
    if (sqlite3_exec(book.handle(), sql.c_str(), add, &lines, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(book.handle()));
    return lines;
}

std::string contentOf(Connection& book)
{
    std::string all;
    for (const std::string schema : {"main", "auxiliary"}) {
        for (std::string table :
            linesOf(book, "SELECT name FROM " + schema + ".sqlite_master WHERE type='table' ORDER BY name")) {
            table.pop_back();
            all += table + '\n';
            for (const std::string& line : linesOf(book, "SELECT * FROM " + schema + ".\"" + table + '"'))
                all += "  " + line + '\n';
        }
    }
    return all;
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
    (void)openToWrite(files.auxiliaryDatabase());
    Connection book = openToWrite(files.mainDatabase());
    book.attach(
        files.auxiliaryDatabase(), testKeys().keyForCopy(files.auxiliaryDatabase()), QStringLiteral("auxiliary"));
    return findingsIn(book) + contentOf(book);
}

} // namespace

Connection openToWrite(const QString& path)
{
    return Connection::open(path, testKeys().keyForCopy(path), Connection::Access::ReadWrite);
}

Book openBookToWrite(const QString& folder)
{
    return {openToWrite(BookFiles(folder).mainDatabase()), openToWrite(BookFiles(folder).auxiliaryDatabase())};
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
        if (entry.fileName().startsWith(u'.') || entry.fileName().endsWith(QStringLiteral(".part")))
            all += ' ' + QDir(folder).relativeFilePath(entry.filePath()).toStdString();
    }
    return all;
}

void copyFolder(const QString& source, const QString& target)
{
    QDir(target).removeRecursively();
    QDir().mkpath(target);
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : QDir(source).entryInfoList(everything)) {
        const QString copy = target + u'/' + entry.fileName();
        if (entry.isDir())
            copyFolder(entry.filePath(), copy);
        else if (!QFile::copy(entry.filePath(), copy))
            throw std::runtime_error("cannot copy " + copy.toStdString());
    }
}

void makeSmallBook(const QString& folder)
{
    const TemporaryBook book;
    book.addCode(300, QStringLiteral("Ενοίκια"), false, 1);
    book.addUser(QStringLiteral("Άννα"), QStringLiteral("κωδικός"));
    book.close(QDate(2024, 3, 12));
    {
        Book open = book.open();
        CashBook cashBook(open, {});
        for (int i = 0; i < 10; ++i)
            (void)cashBook.insert(incomeOf(QDate(2024, 3, 13 + i % 3), cents(100 + i)));
    }
    copyFolder(book.folder(), folder);
}

} // namespace lorvan::test

#include "csv/book_export.h"

#include "backup/copy_writing.h"
#include "backup/steady_copy.h"
#include "book/book_files.h"
#include "book/book_schema.h"
#include "csv/book_tables.h"
#include "csv/csv_values.h"
#include "export/movement_workbook.h"
#include "export/table_export.h"
#include "movements/movement_store.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"
#include "platform/files/new_folder.h"
#include "platform/stop_check.h"
#include "platform/work.h"

#include <QDir>
#include <QFile>

namespace lorvan {
namespace {

constexpr qint64 rowsBetweenProgress = 256;
constexpr qsizetype writtenAtOnce = 1 << 20;
const QString workbookName = QStringLiteral("kinhseis.xlsx");

QString nameOf(const BookTable& table)
{
    return QString::fromLatin1(table.name) + QStringLiteral(".csv");
}

/// A file that is written in large pieces. All operations throw Refused.
class OutputFile {
public:
    explicit OutputFile(const QString& path)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            fail();
    }
    void write(const QByteArray& bytes)
    {
        m_waiting += bytes;
        if (m_waiting.size() >= writtenAtOnce)
            flush();
    }
    void flush()
    {
        for (qsizetype done = 0; done < m_waiting.size();) {
            const qint64 written = m_file.write(m_waiting.constData() + done, m_waiting.size() - done);
            if (written <= 0)
                fail();
            done += written;
        }
        m_waiting.clear();
    }

private:
    [[noreturn]] void fail() const
    {
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται. %2").arg(m_file.fileName(), m_file.errorString()));
    }

    QFile m_file;
    QByteArray m_waiting;
};

/// Both databases as they are at one moment, copied into a folder that is removed when the object is destroyed.
class BookState {
public:
    BookState(const BookFiles& book, KeyRing& keys, const NewFolder& folder, const StepProgress& progress)
        : m_files(folder.filePath(QStringLiteral(".book")))
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
    ~BookState() { QDir(m_files.dataFolder()).removeRecursively(); }
    BookState(const BookState&) = delete;
    BookState& operator=(const BookState&) = delete;

    [[nodiscard]] const BookFiles& files() const { return m_files; }

private:
    BookFiles m_files;
};

Connection openCopy(const QString& path, KeyRing& keys)
{
    return Connection::open(path, keys.keyForCopy(path), Connection::Access::ReadOnly);
}

qint64 countRows(Connection& connection, const BookTable& table)
{
    auto row = connection.prepare(std::string("SELECT count(*) FROM ") + table.name);
    return row.step() ? row.integer(0) : 0;
}

QByteArray csvValue(const Statement& row, int column, BookColumn::Kind kind)
{
    if (row.isNull(column))
        return {};
    switch (kind) {
    case BookColumn::Kind::Whole:
        return QByteArray::number(static_cast<qint64>(row.integer(column)));
    case BookColumn::Kind::Amount:
        return csvAmount(row.currency(column));
    case BookColumn::Kind::Date:
        return csvDate(row.integer(column));
    case BookColumn::Kind::Flag:
        return row.boolean(column) ? "1" : "0";
    case BookColumn::Kind::Text:
    case BookColumn::Kind::Password:
        break;
    }
    return csvText(row.text(column));
}

/// Reports progress over all tables; the movements count twice, since they also become a workbook.
class Export {
public:
    Export(const BookState& state, KeyRing& keys, const NewFolder& folder, Passwords passwords,
        const StepProgress& progress)
        : m_main(openCopy(state.files().mainDatabase(), keys))
        , m_auxiliary(openCopy(state.files().auxiliaryDatabase(), keys))
        , m_folder(folder)
        , m_passwords(passwords)
        , m_progress(progress)
    {
        for (const BookTable& table : bookTables()) {
            if (!isThere(table))
                continue;
            m_tables.push_back(&table);
            m_rows += countRows(databaseOf(table), table);
        }
        m_rows += countRows(m_main, bookTables().front());
    }

    /// Returns the names of the files.
    QStringList run()
    {
        QStringList files;
        for (const BookTable* table : m_tables) {
            files += nameOf(*table);
            writeTable(*table);
        }
        writeWorkbook();
        return files << workbookName;
    }

private:
    [[nodiscard]] Connection& databaseOf(const BookTable& table)
    {
        return table.database == BookTable::Database::Main ? m_main : m_auxiliary;
    }
    /// This program's own tables may be missing in a book made elsewhere.
    [[nodiscard]] bool isThere(const BookTable& table)
    {
        return !isOwnTable(QLatin1String(table.name)) || databaseOf(table).knowsTable(table.name);
    }
    [[nodiscard]] std::vector<BookColumn> columnsOf(const BookTable& table) const;
    void writeTable(const BookTable& table);
    void writeWorkbook();
    void noteRow()
    {
        if (++m_done % rowsBetweenProgress == 0)
            m_progress(m_done, m_rows);
    }

    Connection m_main;
    Connection m_auxiliary;
    const NewFolder& m_folder;
    Passwords m_passwords;
    const StepProgress& m_progress;
    std::vector<const BookTable*> m_tables;
    qint64 m_rows = 0;
    qint64 m_done = 0;
};

std::vector<BookColumn> Export::columnsOf(const BookTable& table) const
{
    std::vector<BookColumn> columns = table.columns;
    if (m_passwords == Passwords::LeaveOut)
        std::erase_if(columns, [](const BookColumn& each) { return each.kind == BookColumn::Kind::Password; });
    return columns;
}

QByteArray joined(const std::vector<BookColumn>& columns)
{
    QByteArrayList names;
    for (const BookColumn& each : columns)
        names += each.name;
    return names.join(',');
}

void Export::writeTable(const BookTable& table)
{
    const std::vector<BookColumn> columns = columnsOf(table);
    const QByteArray names = joined(columns);
    OutputFile file(m_folder.filePath(nameOf(table)));
    file.write(names + '\n');
    auto rows =
        databaseOf(table).prepare(("SELECT " + names + " FROM " + table.name + " ORDER BY rowid").toStdString());
    while (rows.step()) {
        QByteArray line;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            line += column == 0 ? "" : ",";
            line += csvValue(rows, static_cast<int>(column), columns[column].kind);
        }
        file.write(line + '\n');
        noteRow();
    }
    file.flush();
}

void Export::writeWorkbook()
{
    const QString path = m_folder.filePath(workbookName);
    try {
        MovementWorkbook workbook(path);
        forEachMovement(m_main, [&](const Movement& movement) {
            workbook.add(movement);
            noteRow();
        });
        workbook.finish();
    } catch (const TableExportError& error) {
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται. %2").arg(path, QString::fromUtf8(error.what())));
    }
}

} // namespace

QStringList exportBook(
    const BookFiles& book, KeyRing& keys, const NewFolder& folder, Passwords passwords, const StepProgress& progress)
{
    const BookState state(book, keys, folder, progress);
    return Export(state, keys, folder, passwords, progress).run();
}

} // namespace lorvan

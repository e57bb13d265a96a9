#include "csv/book_export.h"

#include "book/book_schema.h"
#include "csv/book_state.h"
#include "csv/book_tables.h"
#include "csv/table_lines.h"
#include "export/movement_workbook.h"
#include "export/table_export.h"
#include "movements/movement_store.h"
#include "platform/files/new_folder.h"
#include "platform/files/system_reason.h"
#include "platform/work_watch.h"

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
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται: %2")
                          .arg(m_file.fileName(), withStop(systemReason(m_file.errorString()))));
    }

    QFile m_file;
    QByteArray m_waiting;
};

qint64 countRows(Connection& connection, const BookTable& table)
{
    auto row = connection.prepare(std::string("SELECT count(*) FROM ") + table.name);
    return row.step() ? row.integer(0) : 0;
}

/// Reports progress over all tables; the movements count twice, since they also become a workbook.
class Export {
public:
    Export(const BookState& state, const NewFolder& folder, Passwords passwords, const StepProgress& progress)
        : m_main(state.openMain())
        , m_auxiliary(state.openAuxiliary())
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

void Export::writeTable(const BookTable& table)
{
    OutputFile file(m_folder.filePath(nameOf(table)));
    const auto columns = m_passwords == Passwords::LeaveOut ? columnsWithoutPasswords(table) : table.columns;
    forEachLine(databaseOf(table), table, columns, std::nullopt, [&](const QByteArray& line) {
        file.write(line);
        noteRow();
    });
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
        throw Refused(
            QStringLiteral("Το αρχείο %1 δεν γράφεται: %2").arg(path, withStop(QString::fromUtf8(error.what()))));
    }
}

} // namespace

QStringList exportBook(
    const BookFiles& book, KeyRing& keys, const NewFolder& folder, Passwords passwords, const StepProgress& progress)
{
    beginStep(QStringLiteral("Αντιγράφεται το βιβλίο…"));
    const BookState state(book, keys, folder.filePath(QStringLiteral(".book")), progress);
    beginStep(QStringLiteral("Γράφονται τα αρχεία CSV και XLSX…"));
    return Export(state, folder, passwords, progress).run();
}

} // namespace lorvan

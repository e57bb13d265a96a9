#include "legacy/legacy_store.h"

#include "book/book.h"
#include "cashbook/journal_keeping.h"
#include "journal/journal.h"
#include "legacy/legacy_book.h"
#include "platform/engine/transaction.h"
#include "proof/opening_balance.h"

#include <QStringList>

namespace lorvan {
namespace {

/// The names are constants of legacyTables().
std::string insertion(const LegacyTable& table)
{
    QStringList names;
    QStringList marks;
    for (const LegacyColumn& column : table.columns) {
        names += column.name;
        marks += QStringLiteral("?");
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(table.name, names.join(u','), marks.join(u','))
        .toStdString();
}

void bindCell(Statement& statement, int parameter, const LegacyCell& cell)
{
    if (const auto* number = std::get_if<std::int64_t>(&cell))
        statement.bindAt(parameter, *number);
    else if (const auto* text = std::get_if<QString>(&cell))
        statement.bindAt(parameter, *text);
    else
        statement.bindAt(parameter, nullptr);
}

class Storing {
public:
    Storing(const LegacyBook& legacy, const std::function<void(std::uint64_t)>& advance)
        : m_legacy(legacy)
        , m_advance(advance)
    {
    }

    void store(Connection& connection, LegacyTable::File file)
    {
        Transaction transaction(connection, Authority::companion());
        for (const LegacyRows& rows : m_legacy.tables) {
            if (rows.table->file == file)
                store(connection, rows);
        }
        transaction.commit();
    }

private:
    void store(Connection& connection, const LegacyRows& rows)
    {
        if (rows.table->name == legacyVersion)
            connection.execute("DELETE FROM taytothta");
        auto insert = connection.prepare(insertion(*rows.table));
        for (const LegacyRow& row : rows.rows) {
            for (std::size_t i = 0; i < row.size(); ++i)
                bindCell(insert, static_cast<int>(i) + 1, row[i]);
            insert.run();
            m_advance(++m_stored);
        }
    }

    const LegacyBook& m_legacy;
    const std::function<void(std::uint64_t)>& m_advance;
    std::uint64_t m_stored = 0;
};

QJsonObject countsOf(const LegacyBook& legacy, LegacyTable::File file)
{
    QJsonObject counts;
    for (const LegacyRows& rows : legacy.tables) {
        if (rows.table->file == file)
            counts[rows.table->name] = qint64(rows.rows.size());
    }
    return counts;
}

void recordFiles(Connection& main, const LegacyBook& legacy)
{
    const Authority companion = Authority::companion();
    Transaction transaction(main, companion);
    for (const LegacyTable::File file : {LegacyTable::File::Main, LegacyTable::File::Auxiliary})
        recordChange(
            main, companion, {JournalAction::Import, journal_subject::book(), {}, {}, {}, countsOf(legacy, file)});
    transaction.commit();
}

} // namespace

void storeLegacyBook(const LegacyBook& legacy, Book& book, const std::function<void(std::uint64_t)>& advance)
{
    Storing storing(legacy, advance);
    storing.store(book.main(), LegacyTable::File::Main);
    storing.store(book.auxiliary(), LegacyTable::File::Auxiliary); // its closings are there when the journal begins
    {
        Transaction transaction(book.main(), Authority::companion());
        adoptOpeningBalance(book.main(), book.auxiliary());
        transaction.commit();
    }
    keepJournal(book.main(), book.auxiliary());
    recordFiles(book.main(), legacy);
}

} // namespace lorvan

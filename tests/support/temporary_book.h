#pragma once

#include "book/book.h"
#include "book/book_files.h"
#include "movements/movement.h"
#include "platform/authority.h"
#include "platform/clock.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"
#include "support/printing.h"

#include <QTemporaryDir>

#include <string_view>

namespace lorvan::test {

[[nodiscard]] inline Currency cents(std::int64_t count)
{
    return Currency::fromTenThousandths(count * 100);
}

/// Keys derived once for the whole test process.
[[nodiscard]] KeyRing& testKeys();

/// A database to be written, as another program would.
[[nodiscard]] Connection openAt(const QString& path);

/// The same for a file that may be replaced, and on which this process holds no lock.
[[nodiscard]] Connection openCopy(const QString& path);

/// Both databases of a book that nobody else has open, the auxiliary one as "other".
[[nodiscard]] Connection openBoth(const QString& folder);

/// A book of its own in a folder that goes with the object. Two codes are there from the start: incomeCode (in group 1)
/// and expenseCode (without a group), both active.
class TemporaryBook {
public:
    static constexpr qint32 incomeCode = 100;
    static constexpr qint32 expenseCode = 200;

    TemporaryBook();

    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] BookFiles files() const { return BookFiles(folder()); }

    [[nodiscard]] Connection openMain() const { return openAt(files().mainDatabase()); }
    [[nodiscard]] Connection openAuxiliary() const { return openAt(files().auxiliaryDatabase()); }
    [[nodiscard]] Book open() const { return {files(), testKeys(), Connection::Access::ReadWrite}; }

    /// Runs statements on the main database, as another program would.
    void execute(std::string_view sql) const { openMain().execute(sql); }
    void addGroup(qint32 number, const QString& name) const;
    void addCode(qint32 code, const QString& description, bool income, qint32 group = 0, bool active = true) const;
    /// Stores a movement's row alone: no cash day is written.
    void addMovementRow(const MovementDraft& movement) const;
    void addUser(const QString& name, const QString& password) const;
    void close(QDate day) const;
    /// Takes the main database back to the form before the first schema version: no memorandum column, no version.
    void makeVersionless() const;

private:
    QTemporaryDir m_folder;
};

/// Lets the triggers that a test makes run on this connection, to have a step of a change refused.
void letTriggersRun(Connection& connection);

/// Leaves a journal beside a database, as a program does that is killed in the middle of a change.
void leaveJournal(const QString& database, std::string_view change);

/// The first column of the first row, as text; empty when there is no row.
[[nodiscard]] QString valueOf(Connection& connection, std::string_view sql);

/// All rows of a table by its first column, one on each line, their values as SQL writes them, `without` some columns.
[[nodiscard]] QByteArray rowsOf(
    Connection& connection, const QString& table, const QString& schema = "main", const QStringList& without = {});

/// Midday of a day with nothing special about it, 15 March 2024 (a Friday).
[[nodiscard]] Clock fixedClock();

/// A user at that time, with these rights or with all.
[[nodiscard]] inline Authority by(Rights rights = {})
{
    return Authority::user(QStringLiteral("Σοφία"), rights, fixedClock());
}
[[nodiscard]] inline Authority byAll()
{
    return by({true, true, true});
}

[[nodiscard]] MovementDraft incomeOf(
    QDate day, Currency amount, const QString& description = QStringLiteral("είσπραξη"));
[[nodiscard]] MovementDraft expenseOf(
    QDate day, Currency amount, const QString& description = QStringLiteral("πληρωμή"));

} // namespace lorvan::test

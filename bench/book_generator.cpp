#include "book_generator.h"

#include "book/book.h"
#include "codes/code_catalogue.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"

#include <QFile>

#include <algorithm>
#include <random>
#include <vector>

namespace lorvan::bench {
namespace {

constexpr int codeCount = 40;
constexpr int groupCount = 8;

QDate dayAt(int index)
{
    return QDate(2016, 10, 15).addDays(index);
}

bool isMeasured(int dayIndex)
{
    return dayIndex == 0 || dayIndex == cashDays / 2 || dayIndex == cashDays - 1;
}

/// The day of every movement, in the order of entry.
std::vector<int> daysInOrderOfEntry(int movements, std::mt19937& random)
{
    const int elsewhere = movements - 3 * movementsOfMeasuredDay;
    const int otherDays = cashDays - 3;
    std::vector<int> days;
    int other = 0;
    for (int day = 0; day < cashDays; ++day) {
        const int count = isMeasured(day) ? movementsOfMeasuredDay
                                          : elsewhere / otherDays + (other++ < elsewhere % otherDays ? 1 : 0);
        days.insert(days.end(), static_cast<std::size_t>(count), day);
    }
    for (std::size_t i = 0; i < days.size(); i += 10)
        std::swap(days[i], days[i + random() % (days.size() - i)]);
    return days;
}

void addCodes(Connection& main)
{
    for (int group = 1; group <= groupCount; ++group)
        main.prepare("INSERT INTO omades (perigrafh) VALUES (?)").bind(QStringLiteral("Ομάδα %1").arg(group)).run();
    for (int i = 0; i < codeCount; ++i) {
        const qint32 code = firstCode + i;
        const int group = i % groupCount + 1;
        const QString description = QStringLiteral("Κωδικός κίνησης %1").arg(code);
        main.prepare("INSERT INTO kvdikoi (kvdikos, perigrafh, omada, aa_omadas, lista, esodo, energos)"
                     " VALUES (?,?,?,?,?,?,?)")
            .bind(code, description, QStringLiteral("Ομάδα %1").arg(group), group,
                codeListLine(QString::number(code), description), i % 2 == 0, true)
            .run();
    }
}

void addMovements(Connection& main, int movements)
{
    std::mt19937 random(static_cast<unsigned>(movements));
    auto row = main.prepare("INSERT INTO kinhseis"
                            " (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, grammh, epitagh, L_tajeos)"
                            " VALUES (?,?,?,?,?,?,?,?,0)");
    for (const int day : daysInOrderOfEntry(movements, random)) {
        const int code = static_cast<int>(random() % codeCount);
        const Currency amount = Currency::fromCents(static_cast<std::int64_t>(random() % 50'000));
        const bool income = code % 2 == 0;
        row.bind(firstCode + code, dayAt(day), QStringLiteral("Τιμολόγιο %1 πελάτη").arg(random() % 10'000),
            income ? amount : Currency(), income ? Currency() : amount, code % groupCount + 1, QString(60, u' '),
            random() % 20 == 0);
        row.run();
    }
}

void addCashDays(Connection& main)
{
    auto sums = main.prepare("SELECT hmeromhnia, sum(esoda), sum(ejoda) FROM kinhseis GROUP BY hmeromhnia"
                             " ORDER BY hmeromhnia");
    Currency balance;
    while (sums.step()) {
        balance += sums.currency(1) - sums.currency(2);
        main.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,?,?,?)")
            .bind(sums.date(0), sums.currency(1), sums.currency(2), balance)
            .run();
    }
}

void closeAllButTheNewest(Connection& auxiliary)
{
    Transaction transaction(auxiliary, Authority::companion());
    for (int day = 1; day < cashDays - 7; ++day) {
        if (!isMeasured(day))
            auxiliary.prepare("INSERT INTO klhsimotameioy (hmeraklhsimatos) VALUES (?)").bind(dayAt(day)).run();
    }
    transaction.commit();
}

} // namespace

QDate oldestDay()
{
    return dayAt(0);
}

QDate middleDay()
{
    return dayAt(cashDays / 2);
}

QDate ordinaryDay()
{
    return dayAt(cashDays / 3);
}

QDate newestDay()
{
    return dayAt(cashDays - 1);
}

void ensureBook(const BookFiles& files, int movements)
{
    const QString complete = files.dataFolder() + QStringLiteral("/complete");
    if (BookFiles::exists(complete))
        return;
    for (const QString& left : {files.mainDatabase(), files.auxiliaryDatabase(), files.usageMarker()})
        QFile::remove(left);
    createBook(files);
    KeyRing keys(bookPassword());
    Connection main =
        Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    Connection auxiliary = Connection::open(
        files.auxiliaryDatabase(), keys.keyFor(files.auxiliaryDatabase()), Connection::Access::ReadWrite);
    Transaction transaction(main, Authority::companion());
    addCodes(main);
    addMovements(main, movements);
    addCashDays(main);
    transaction.commit();
    closeAllButTheNewest(auxiliary);
    QFile mark(complete);
    (void)mark.open(QIODevice::WriteOnly);
}

} // namespace lorvan::bench

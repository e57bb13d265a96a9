// Tells one fact about a book from outside the program: tour_check FOLDER YYYYMMDD FACT, where FACT is
//   movements   how many movements the day has
//   balance     the day's closing balance in cents, or the carried one when the day has no row yet
//   last        the day's last movement: code|description|income|expense in cents
//   marker      the state of the usage marker
// Reads with plain statements and none of the cash book's own rules.

#include "book/book_files.h"
#include "platform/engine/connection.h"

#include <QCoreApplication>
#include <QFile>

#include <iostream>

namespace {

using namespace lorvan;

std::string query(const BookFiles& files, std::string_view sql, int day)
{
    KeyRing keys(bookPassword());
    const QString path = files.mainDatabase();
    Connection main = Connection::open(path, keys.keyFor(path), Connection::Access::ReadOnly);
    auto row = main.prepare(sql);
    row.bind(day);
    return row.step() ? row.text(0).toStdString() : "none";
}

std::string fact(const BookFiles& files, int day, const QString& name)
{
    if (name == QStringLiteral("movements"))
        return query(files, "SELECT count(*) FROM kinhseis WHERE hmeromhnia=?", day);
    if (name == QStringLiteral("balance"))
        return query(
            files, "SELECT ypoloipo/100 FROM tameio WHERE hmeromhnia<=? ORDER BY hmeromhnia DESC LIMIT 1", day);
    if (name == QStringLiteral("last"))
        return query(files,
            "SELECT kvdikos || '|' || perigrafh || '|' || (esoda/100) || '|' || (ejoda/100) FROM kinhseis"
            " WHERE hmeromhnia=? ORDER BY aa DESC LIMIT 1",
            day);
    QFile marker(files.usageMarker());
    return marker.open(QIODevice::ReadOnly) ? marker.read(1).toStdString() : "none";
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 4)
        return 2;
    try {
        std::cout << fact(BookFiles(words[1]), words[2].toInt(), words[3]) << '\n';
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}

#include "benchmarks.h"

#include "bare_sql.h"
#include "book/book.h"
#include "book_generator.h"
#include "cashbook/cash_book.h"
#include "platform/date_text.h"

#include <memory>

namespace lorvan::bench {
namespace {

constexpr double dayTarget = 1.3;
constexpr double oldestDayTarget = 1.5;
constexpr std::int64_t insertedUnits = 123'400;
constexpr auto insertedText = "Τιμολόγιο 1234 πελάτη";
constexpr auto insertedState =
    R"({"L_tajeos":0,"aa":1000000,"ejoda":0,"epitagh":0,"esoda":123400,"hmeromhnia":20240315,"kvdikos":101,)"
    R"("perigrafh":"Τιμολόγιο 1234 πελάτη"})";
constexpr auto digest = "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef";

/// The least that the engine has to do, on connections of its own.
struct BareBook {
    BareBook(const BookFiles& files, KeyRing& keys)
        : main(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , auxiliary(files.auxiliaryDatabase(), keys.keyFor(files.auxiliaryDatabase()).engineText())
    {
    }

    void fill(QDate day) const
    {
        reading.run();
        read(day);
        commit.run();
    }

    void read(QDate day) const
    {
        previous.run({storedDate(day)});
        rows.run({storedDate(day)});
    }

    void change(QDate day) const
    {
        closed.run({storedDate(day)});
        fill(day);
    }

    void insertOnNewest() const
    {
        const std::int64_t day = storedDate(newestDay());
        begin.run();
        insertRow(day);
        read(newestDay());
        dayRow.run({std::int64_t(1), std::int64_t(2), std::int64_t(3), day});
        commit.run();
    }

    void insertOnOldest() const
    {
        const std::int64_t day = storedDate(oldestDay());
        begin.run();
        insertRow(day);
        dayRow.run({std::int64_t(1), std::int64_t(2), std::int64_t(3), day});
        shift.run({insertedUnits, day});
        commit.run();
    }

    void insertRow(std::int64_t day) const
    {
        insert.run({std::int64_t(firstCode), day, insertedText, insertedUnits, std::int64_t(0), std::int64_t(1),
            "  101 Τιμολόγιο 1234 πελάτη                         12,34          0 ", std::int64_t(0), std::int64_t(0)});
        journal.run({std::int64_t(1'700'000'000'000), "ΜΑΡΙΑ", "ταμείο", "insert", "movement/1000000", day,
            std::int64_t(firstCode), insertedState, digest, digest});
    }

    BareConnection main;
    BareConnection auxiliary;
    BareStatement begin{main, "BEGIN IMMEDIATE"};
    BareStatement reading{main, "BEGIN"};
    BareStatement commit{main, "COMMIT"};
    BareStatement closed{auxiliary, "SELECT 1 FROM klhsimotameioy WHERE hmeraklhsimatos=? LIMIT 1"};
    BareStatement previous{
        main, "SELECT hmeromhnia, ypoloipo FROM tameio WHERE hmeromhnia<? ORDER BY hmeromhnia DESC LIMIT 1"};
    BareStatement rows{main,
        "SELECT aa, kvdikos, perigrafh, esoda, ejoda, epitagh, L_tajeos FROM kinhseis WHERE hmeromhnia=? ORDER BY aa"};
    BareStatement insert{main,
        "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, grammh, epitagh, L_tajeos)"
        " VALUES (?,?,?,?,?,?,?,?,?)"};
    BareStatement journal{main,
        "INSERT INTO journal (at, user, computer, action, subject, day, code, after, previous, hash)"
        " VALUES (?,?,?,?,?,?,?,?,?,?)"};
    BareStatement dayRow{main, "UPDATE tameio SET esoda=?, ejoda=?, ypoloipo=? WHERE hmeromhnia=?"};
    BareStatement shift{main, "UPDATE tameio SET ypoloipo=ypoloipo+? WHERE hmeromhnia>?"};
};

/// Both ways of working on one book, and the way back after an insert.
struct Bench {
    explicit Bench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files, keys)
        , book(Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite),
              Connection::open(
                  files.auxiliaryDatabase(), keys.keyFor(files.auxiliaryDatabase()), Connection::Access::ReadWrite))
        , cashBook(book, Authority::companion())
    {
    }

    void insert(QDate day)
    {
        const Currency amount = Currency::fromTenThousandths(insertedUnits);
        (void)cashBook.insert({firstCode, day, QString::fromUtf8(insertedText), amount, {}, {}, false});
    }

    /// Each side undoes what it did on its own connection, so that its page cache stays warm.
    void removeLast()
    {
        auto last = book.main().prepare("SELECT max(aa) FROM kinhseis");
        if (last.step())
            (void)cashBook.remove(last.integer(0));
    }
    void removeBareLast(QDate day, bool shifted) const
    {
        bare.begin.run();
        bare.main.execute("DELETE FROM kinhseis WHERE aa=(SELECT max(aa) FROM kinhseis)");
        if (shifted)
            bare.shift.run({-insertedUnits, std::int64_t(storedDate(day))});
        bare.commit.run();
    }

    KeyRing keys;
    BareBook bare;
    Book book;
    CashBook cashBook;
};

Comparison fill(const std::shared_ptr<Bench>& bench, const QString& name, QDate day)
{
    return {QStringLiteral("fill the %1 day").arg(name), {[=] { bench->bare.fill(day); }},
        {[=] { (void)bench->cashBook.showDay(day, DayRow::Write); }}, dayTarget, 301};
}

Comparison change(const std::shared_ptr<Bench>& bench)
{
    const auto other = [] { return middleDay().addDays(1); };
    return {QStringLiteral("change the day"),
        {[=] { bench->bare.change(middleDay()); }, [=] { bench->bare.change(other()); }},
        {[=] {
             (void)bench->cashBook.isDayClosed(middleDay());
             (void)bench->cashBook.showDay(middleDay(), DayRow::Write);
         },
            [=] { (void)bench->cashBook.showDay(other(), DayRow::Write); }},
        dayTarget, 301};
}

} // namespace

std::vector<Comparison> movementBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<Bench>(files);
    return {
        fill(bench, QStringLiteral("oldest"), oldestDay()),
        fill(bench, QStringLiteral("middle"), middleDay()),
        fill(bench, QStringLiteral("newest"), newestDay()),
        fill(bench, QStringLiteral("ordinary"), ordinaryDay()),
        change(bench),
        {QStringLiteral("insert on the newest day"),
            {[=] { bench->bare.insertOnNewest(); }, [=] { bench->removeBareLast(newestDay(), false); }},
            {[=] { bench->insert(newestDay()); }, [=] { bench->removeLast(); }}, dayTarget},
        {QStringLiteral("insert on the oldest day"),
            {[=] { bench->bare.insertOnOldest(); }, [=] { bench->removeBareLast(oldestDay(), true); }},
            {[=] { bench->insert(oldestDay()); }, [=] { bench->removeLast(); }}, oldestDayTarget},
    };
}

} // namespace lorvan::bench

#include "benchmarks.h"

#include "bare_sql.h"
#include "book_generator.h"
#include "codes/code_maintenance.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"

#include <QFile>

#include <memory>

namespace lorvan::bench {
namespace {

constexpr double target = 1.5;
constexpr int samples = 5;
constexpr int movements = 1'000'000;
constexpr qint64 rowOfCode = 1;
constexpr qint32 firstGroup = 1;
constexpr qint32 secondGroup = 2;

/// Both ways of moving one code, with all its movements, into a group.
struct Bench {
    explicit Bench(const BookFiles& files)
        : keys(bookPassword())
        , bare(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText())
        , main(Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite))
    {
    }

    void modify(qint32 group)
    {
        const CodeEntry entry{QString::number(firstCode), QStringLiteral("Κωδικός κίνησης"),
            QStringLiteral("Ομάδα %1").arg(group), true, true};
        (void)modifyCode(main, Authority::companion(), rowOfCode, entry, group);
    }

    void modifyBare(std::int64_t group) const
    {
        begin.run();
        code.run({std::int64_t(firstCode), "Κωδικός κίνησης", "  101 Κωδικός κίνησης", group, std::int64_t(-1),
            std::int64_t(-1), group == firstGroup ? "Ομάδα 1" : "Ομάδα 2", std::int64_t(rowOfCode)});
        codesMovements.run({group, std::int64_t(firstCode)});
        commit.run();
    }

    KeyRing keys;
    BareConnection bare;
    BareStatement begin{bare, "BEGIN IMMEDIATE"};
    BareStatement commit{bare, "COMMIT"};
    BareStatement code{bare,
        "UPDATE kvdikoi SET kvdikos=?, perigrafh=?, lista=?, aa_omadas=?, esodo=?, energos=?, omada=? WHERE aa=?"};
    BareStatement codesMovements{bare, "UPDATE kinhseis SET aa_omada=? WHERE kvdikos=?"};
    Connection main;
};

} // namespace

void ensureCodesBook(const BookFiles& files)
{
    const QString complete = files.dataFolder() + QStringLiteral("/one-code-has-half");
    if (BookFiles::exists(complete))
        return;
    ensureBook(files, movements);
    KeyRing keys(bookPassword());
    Connection main =
        Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    main.prepare("UPDATE kinhseis SET kvdikos=CASE aa%2 WHEN 0 THEN ?1 ELSE max(kvdikos, ?1+1) END,"
                 " aa_omada=CASE aa%2 WHEN 0 THEN ?2 ELSE aa_omada END")
        .bind(firstCode, firstGroup)
        .run();
    QFile mark(complete);
    (void)mark.open(QIODevice::WriteOnly);
}

std::vector<Comparison> codeBenchmarks(const BookFiles& files)
{
    const auto bench = std::make_shared<Bench>(files);
    return {{QStringLiteral("move a code of 500 000"),
        {[=] { bench->modifyBare(secondGroup); }, [=] { bench->modifyBare(firstGroup); }},
        {[=] { bench->modify(secondGroup); }, [=] { bench->modify(firstGroup); }}, target, samples}};
}

} // namespace lorvan::bench

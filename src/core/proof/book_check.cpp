#include "proof/book_check.h"

#include "audit/cash_day_findings.h"
#include "audit/record_audit.h"
#include "book/schema_guard.h"
#include "movements/opening_difference.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/sql_error.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"
#include "proof/trail_audit.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace lorvan {
namespace {

BookFindings findingsOf(const CashAudit& audit)
{
    BookFindings findings = audit.movements.findings;
    findings.merge(audit.dayFindings);
    if (!audit.days) {
        findings.add({FindingKind::SumTooLarge});
        return findings;
    }
    findings.merge(findingsOf(*audit.days));
    return findings;
}

std::int64_t rowsOf(Connection& book, const char* sql)
{
    auto row = book.prepare(sql);
    return row.step() ? row.integer(0) : 0;
}

BookTotals totalsOf(Connection& book, const MovementTotals& movements)
{
    BookTotals totals;
    totals.movements = movements;
    totals.cashDays = rowsOf(book, "SELECT count(*) FROM tameio");
    totals.codes = rowsOf(book, "SELECT count(*) FROM kvdikoi");
    totals.groups = rowsOf(book, "SELECT count(*) FROM omades");
    totals.closedDays = rowsOf(book, "SELECT count(*) FROM klhsimotameioy");
    totals.users = rowsOf(book, "SELECT count(*) FROM codes");
    totals.firstDay = rowsOf(book, "SELECT min(hmeromhnia) FROM tameio");
    auto last = book.prepare("SELECT hmeromhnia, ypoloipo FROM tameio WHERE typeof(hmeromhnia)='integer'"
                             " ORDER BY hmeromhnia DESC, aa DESC LIMIT 1");
    if (last.step()) {
        totals.lastDay = last.integer(0);
        totals.lastBalance = last.currency(1);
    } else
        for (const auto& [day, amount] : openingDifferences(book))
            totals.lastBalance += amount;
    return totals;
}

/// True for an error of the engine that means that the file exists but its content is wrong.
bool tellsOfDamage(const SqlError& error)
{
    switch (error.kind()) {
    case SqlError::Kind::Damaged:
    case SqlError::Kind::NotADatabase:
    case SqlError::Kind::Other: // a page that is not authentic, found by the check itself
        return true;
    default:
        return false;
    }
}

QStringList complaintsAbout(Connection& book, const QString& schema)
{
    const std::string sql = "PRAGMA " + schema.toStdString() + ".integrity_check";
    QStringList complaints;
    try {
        const StoppableReading stoppable;
        auto lines = book.prepare(sql);
        while (lines.step()) {
            if (lines.text(0) != QLatin1String("ok"))
                complaints += lines.text(0).trimmed();
        }
    } catch (const SqlError& error) {
        if (!tellsOfDamage(error))
            throw;
        complaints += error.engineMessage();
    }
    if (!StopCheck::goesOn())
        throw SqlError(SQLITE_INTERRUPT, QStringLiteral("interrupted"), QString::fromStdString(sql));
    return complaints;
}

void addTexts(BookFindings& findings, FindingKind kind, const QStringList& texts)
{
    for (const QString& text : texts) {
        Finding finding{kind};
        finding.text = text;
        findings.add(std::move(finding));
    }
}

/// The engine also reports a page that the disk cannot read as damaged. So if it complains about a file, the whole file
/// is read, which throws in that case, and then checked again.
void checkFile(BookFindings& findings, Connection& book, const QString& schema, const QString& name)
{
    QStringList complaints = complaintsAbout(book, schema);
    if (!complaints.isEmpty()) {
        book.readFile(schema, [](const QByteArray&) { return StopCheck::goesOn(); });
        complaints = complaintsAbout(book, schema);
    }
    for (QString& complaint : complaints)
        complaint.prepend(name + QStringLiteral(": "));
    addTexts(findings, FindingKind::FileDamaged, complaints);
}

BookFindings checkSchemas(Connection& book)
{
    BookFindings findings;
    for (const auto& [schema, database] :
        {std::pair("main", BookDatabase::Main), {"auxiliary", BookDatabase::Auxiliary}}) {
        const SchemaInspection found = inspectSchema(book, QLatin1String(schema), database);
        addTexts(findings, FindingKind::SchemaUnreadable, found.unreadable);
        addTexts(findings, FindingKind::ForeignObject, found.foreign);
        addTexts(findings, FindingKind::OtherObject, found.others);
    }
    return findings;
}

/// Others cannot reach a file in a folder that they may not enter.
bool othersMayRead(const QString& path)
{
    struct stat file { };
    struct stat folder { };
    return ::lstat(QFile::encodeName(path).constData(), &file) == 0
        && ::stat(QFile::encodeName(QFileInfo(path).path()).constData(), &folder) == 0 && (file.st_mode & S_IROTH) != 0
        && (folder.st_mode & S_IXOTH) != 0;
}

void checkAccess(BookFindings& findings, Connection& book)
{
    auto files = book.prepare("PRAGMA database_list");
    while (files.step()) {
        if (const QString path = files.text(2); !path.isEmpty() && othersMayRead(path))
            addTexts(findings, FindingKind::ReadableByOthers, {path});
    }
}

/// About as often as a StopCheck is asked while the engine checks a file that is larger than its cache.
std::int64_t estimatedSteps(Connection& book)
{
    constexpr std::int64_t stepsForAPage = 2; // its tree, and its rows against the indexes
    try {
        return stepsForAPage * (rowsOf(book, "PRAGMA main.page_count") + rowsOf(book, "PRAGMA auxiliary.page_count"));
    } catch (const SqlError&) {
        return 0; // the check will report what is wrong
    }
}

} // namespace

BookFindings checkFiles(Connection& book, const CheckProgress& progress)
{
    beginStep(QStringLiteral("Ελέγχονται τα αρχεία…"));
    BookFindings findings = checkSchemas(book);
    checkAccess(findings, book);
    if (findings.count(FindingKind::SchemaUnreadable) > 0)
        return findings;
    const std::int64_t whole = estimatedSteps(book);
    std::int64_t done = 0;
    const StopCheck reporting([&] {
        progress(std::min(++done, whole), whole);
        return true;
    });
    checkFile(findings, book, QStringLiteral("main"), QStringLiteral("lorvan.mdb"));
    checkFile(findings, book, QStringLiteral("auxiliary"), QStringLiteral("mapcodes.mdb"));
    return findings;
}

bool isReadable(const BookFindings& files)
{
    return files.count(FindingKind::FileDamaged) == 0 && files.count(FindingKind::SchemaUnreadable) == 0;
}

BookCheck checkContent(Connection& book, const CheckProgress& progress)
{
    BookCheck check;
    readSteadily(book, [&] {
        const Transaction transaction(book, Transaction::View::Steady);
        beginStep(QStringLiteral("Ελέγχονται οι κινήσεις…"));
        const CashAudit audit = auditCash(book, progress);
        check = {findingsOf(audit), totalsOf(book, audit.movements.totals)};
        check.findings.merge(auditRecords(book));
        beginStep(QStringLiteral("Ελέγχονται το ημερολόγιο και οι σφραγίδες…"));
        progress(0, 0);
        check.findings.merge(auditTrail(book).findings());
    });
    return check;
}

CashAudit auditCash(Connection& book, const CheckProgress& progress)
{
    CashAudit audit;
    audit.movements = auditMovements(book, progress);
    std::vector<CashDayRow> rows = readCashDays(book, audit.dayFindings);
    try {
        if (!audit.movements.sumTooLarge)
            audit.days = auditCashDays(
                std::move(rows), audit.movements.sumsByDay, openingDifferences(book), isOpeningKnown(book));
    } catch (const CurrencyOverflow&) {
        audit.days.reset();
    }
    return audit;
}

} // namespace lorvan

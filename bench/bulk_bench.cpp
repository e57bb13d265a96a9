// Work on a whole book of a million movements: import, export, the cheques. Figures are processor time, so that they do
// not depend on who else uses the machine; each stands beside a floor measured in the same run.
//
//   lorvan-bulk-bench [FOLDER]
//
// The book is that of lorvan-bench: it is made in FOLDER (default: lorvan-bench in TMPDIR) where it is missing, and
// kept.

#include "bare_sql.h"
#include "book/book.h"
#include "book/book_schema.h"
#include "book/opened_book.h"
#include "book_generator.h"
#include "csv/book_export.h"
#include "csv/csv_import.h"
#include "platform/authority.h"
#include "platform/date_text.h"
#include "platform/engine/transaction.h"
#include "platform/files/new_folder.h"
#include "proof/opening_balance.h"
#include "reports/cheque_report.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace lorvan;
using namespace lorvan::bench;

constexpr int movements = 1'000'000;
constexpr int samples = 3;

/// The stored values of a movement, as the engine takes them.
struct Row {
    std::int64_t key, code, day, income, expense, group, cheque, memorandum;
    std::string description, line;
};

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double secondsOf(const std::function<void()>& action)
{
    const double begin = processorSeconds();
    action();
    return processorSeconds() - begin;
}

/// Medians of both sides, taken in turn.
void compare(
    const char* name, const std::function<double()>& floor, const std::function<double()>& program, double target)
{
    std::vector<double> floors;
    std::vector<double> programs;
    for (int i = 0; i < samples; ++i) {
        programs.push_back(program());
        floors.push_back(floor());
    }
    std::sort(floors.begin(), floors.end());
    std::sort(programs.begin(), programs.end());
    const double ratio = programs[samples / 2] / floors[samples / 2];
    std::printf("| %s | %.3f | %.3f | %.2f | %.2f |%s\n", name, floors[samples / 2], programs[samples / 2], ratio,
        target, ratio > target ? " MISSED" : "");
    std::fflush(stdout);
}

std::vector<Row> rowsOf(OpenedBook& book)
{
    std::vector<Row> rows;
    auto row = book.connection().prepare("SELECT aa, kvdikos, hmeromhnia, esoda, ejoda, aa_omada, epitagh, L_tajeos,"
                                         " perigrafh, grammh FROM kinhseis ORDER BY aa");
    while (row.step())
        rows.push_back({row.integer(0), row.integer(1), row.integer(2), row.integer(3), row.integer(4), row.integer(5),
            row.integer(6), row.integer(7), std::string(row.utf8(8)), std::string(row.utf8(9))});
    return rows;
}

/// The bare inserts: the rows as the import stored them, into an empty book with its indexes, in one transaction.
double bareInserts(const std::vector<Row>& rows, const QString& folder)
{
    const QTemporaryDir place(folder + QStringLiteral("/bare-XXXXXX"));
    const BookFiles files(place.path());
    createBook(files);
    KeyRing keys(bookPassword());
    const BareConnection main(files.mainDatabase(), keys.keyFor(files.mainDatabase()).engineText());
    return secondsOf([&] {
        main.execute("BEGIN IMMEDIATE");
        const BareStatement insert(main,
            "INSERT INTO kinhseis (aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, grammh, epitagh,"
            " L_tajeos) VALUES (?,?,?,?,?,?,?,?,?,?)");
        for (const Row& row : rows)
            insert.run({row.key, row.code, row.day, row.description.c_str(), row.income, row.expense, row.group,
                row.line.c_str(), row.cheque, row.memorandum});
        main.execute("COMMIT");
    });
}

double import(const QString& csv, const QString& book)
{
    QDir(book).removeRecursively();
    createBook(BookFiles(book));
    OpenedBook opened(book, Connection::Access::ReadWrite);
    return secondsOf([&] { (void)importCsv(opened.connection(), Authority::companion(), csv, {}); });
}

double exportTo(const QString& book, const QString& csv)
{
    QDir(csv).removeRecursively();
    OpenedBook opened(book);
    NewFolder folder(csv);
    return secondsOf([&] {
        (void)folder.keep(exportBook(opened.files(), opened.keys(), folder, Passwords::LeaveOut, {[](auto, auto) {}}));
    });
}

double barePass(const QString& book)
{
    KeyRing keys(bookPassword());
    const QString path = BookFiles(book).mainDatabase();
    const BareConnection main(path, keys.keyFor(path).engineText());
    return secondsOf([&] {
        (void)BareStatement(main,
            "SELECT aa, kvdikos, hmeromhnia, perigrafh, esoda, ejoda, aa_omada, grammh, epitagh,"
            " L_tajeos FROM kinhseis ORDER BY aa")
            .run();
    });
}

void writeText(const std::vector<Row>& rows, const std::string& path)
{
    std::FILE* const file = std::fopen(path.c_str(), "w");
    for (const Row& row : rows)
        std::fprintf(file, "%lld,%lld,%04d-%02d-%02d,%s,%lld.%02d,%lld.%02d,%lld,%s,%lld,%lld.%02d\n",
            static_cast<long long>(row.key), static_cast<long long>(row.code), static_cast<int>(row.day / 10000),
            static_cast<int>(row.day / 100 % 100), static_cast<int>(row.day % 100), row.description.c_str(),
            static_cast<long long>(row.income / 10000), static_cast<int>(row.income / 100 % 100),
            static_cast<long long>(row.expense / 10000), static_cast<int>(row.expense / 100 % 100),
            static_cast<long long>(row.group), row.line.c_str(), static_cast<long long>(row.cheque != 0),
            static_cast<long long>(row.memorandum / 10000), static_cast<int>(row.memorandum / 100 % 100));
    std::fclose(file);
}

void writeWorkbook(const std::vector<Row>& rows, const std::string& path)
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* const workbook = workbook_new_opt(path.c_str(), &options);
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook, nullptr);
    lxw_format* const date = workbook_add_format(workbook);
    format_set_num_format(date, "dd/mm/yyyy");
    lxw_row_t line = 0;
    for (const Row& row : rows) {
        worksheet_write_number(sheet, line, 0, static_cast<double>(row.key), nullptr);
        worksheet_write_number(sheet, line, 1, static_cast<double>(row.day), date);
        worksheet_write_number(sheet, line, 2, static_cast<double>(row.code), nullptr);
        worksheet_write_string(sheet, line, 3, row.description.c_str(), nullptr);
        worksheet_write_number(sheet, line, row.income != 0 ? 4 : 5,
            static_cast<double>(row.income + row.expense) / Currency::unitsPerEuro, nullptr);
        if (row.cheque != 0)
            worksheet_write_string(sheet, line, 7, "ναι", nullptr);
        ++line;
    }
    workbook_close(workbook);
}

/// One pass, and the writers fed from memory.
double exportFloor(const QString& book, const std::vector<Row>& rows, const QString& folder)
{
    const QTemporaryDir place(folder + QStringLiteral("/bare-XXXXXX"));
    const std::string path = place.path().toStdString();
    const double pass = barePass(book);
    const double text = secondsOf([&] { writeText(rows, path + "/text.csv"); });
    const double sheet = secondsOf([&] { writeWorkbook(rows, path + "/sheet.xlsx"); });
    std::fprintf(stderr, "  (pass %.2f, CSV %.2f, XLSX %.2f)\n", pass, text, sheet);
    return pass + text + sheet;
}

/// A copy of the book with one cheque in fifty movements.
QString bookOfFewCheques(const QString& source, const QString& target)
{
    QDir().mkpath(target);
    QFile::remove(BookFiles(target).mainDatabase());
    QFile::copy(BookFiles(source).mainDatabase(), BookFiles(target).mainDatabase());
    KeyRing keys(bookPassword());
    const QString path = BookFiles(target).mainDatabase();
    const BareConnection main(path, keys.keyFor(path).engineText());
    main.execute("UPDATE kinhseis SET epitagh=CASE WHEN aa%50=7 THEN -1 ELSE 0 END"
                 " WHERE (epitagh<>0)<>(aa%50=7)");
    return path;
}

double cheques(const QString& path)
{
    KeyRing keys(bookPassword());
    Connection main = Connection::open(path, keys.keyFor(path));
    ReportInputs inputs;
    inputs.start = oldestDay();
    inputs.end = newestDay();
    return secondsOf([&] { (void)chequeReport(main, inputs, {}); });
}

void dropChequeIndexes(const QString& path)
{
    KeyRing keys(bookPassword());
    const BareConnection main(path, keys.keyFor(path).engineText());
    main.execute("DROP INDEX IF EXISTS lorvan_kinhseis_hmeromhnia_cheques");
}

/// As the program does when it opens a book that lacks it.
void createChequeIndex(const QString& path)
{
    KeyRing keys(bookPassword());
    Connection main = Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
    ensureMainSchema(main, main, openingSteps());
}

void run(const QString& folder)
{
    const QString book = folder + QStringLiteral("/%1").arg(movements);
    const QString csv = folder + QStringLiteral("/bulk-csv");
    const QString taken = folder + QStringLiteral("/bulk-taken");
    QDir().mkpath(book);
    ensureBook(BookFiles(book), movements);
    std::printf("| work | floor, s | lorvan, s | ratio | target |\n|---|---|---|---|---|\n");

    const QString path = bookOfFewCheques(book, folder + QStringLiteral("/bulk-cheques"));
    compare(
        "cheques, through the index against without it",
        [&] {
            dropChequeIndexes(path);
            return cheques(path);
        },
        [&] {
            dropChequeIndexes(path);
            createChequeIndex(path);
            return cheques(path);
        },
        0.1);

    std::vector<Row> rows;
    {
        OpenedBook opened(book);
        rows = rowsOf(opened);
    }
    compare(
        "export", [&] { return exportFloor(book, rows, folder); }, [&] { return exportTo(book, csv); }, 2);
    (void)import(csv, taken);
    {
        OpenedBook opened(taken);
        rows = rowsOf(opened);
    }
    compare(
        "import-csv", [&] { return bareInserts(rows, folder); }, [&] { return import(csv, taken); }, 2);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        run(QCoreApplication::arguments().value(1, QDir::tempPath() + QStringLiteral("/lorvan-bench")));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}

// Measures what a user waits for against the least that the database engine needs, on books of three sizes.
//
//   lorvan-bench [FOLDER [MOVEMENTS|codes|sealed|journalled...]]
//
// "codes" stands for a book of its own, on which a much used code is moved into another group; "sealed" and
// "journalled" for books of a million movements whose days are sealed, without and with a row in the journal for each
// movement. The books are made in FOLDER (default: lorvan-bench in TMPDIR) where they are missing, and kept.

#include "benchmarks.h"
#include "book_generator.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <exception>

namespace {

using namespace lorvan;
using namespace lorvan::bench;

void printAll(const QString& book, const std::vector<Comparison>& comparisons)
{
    for (const Comparison& comparison : comparisons)
        printFigures(book, comparison, measure(comparison));
}

void measureBook(const QString& folder, int movements)
{
    const BookFiles files(folder + QStringLiteral("/%1").arg(movements));
    ensureBook(files, movements);
    for (const auto& comparisons :
        {movementBenchmarks(files), reportBenchmarks(files), checkBenchmarks(files), openingBenchmarks(files)})
        printAll(QString::number(movements), comparisons);
}

void measureCodes(const QString& folder)
{
    const BookFiles files(folder + QStringLiteral("/codes"));
    ensureCodesBook(files);
    printAll(QStringLiteral("codes"), codeBenchmarks(files));
}

void measureSeals(const QString& folder, const QString& name)
{
    constexpr int million = 1'000'000;
    const BookFiles files(folder + u'/' + name);
    ensureSealedBook(files, million, name == QStringLiteral("journalled"));
    printAll(name, sealBenchmarks(files));
}

void run(const QStringList& arguments)
{
    const QString folder = arguments.value(1, QDir::tempPath() + QStringLiteral("/lorvan-bench"));
    QStringList sizes = arguments.mid(2);
    if (sizes.isEmpty())
        sizes = {QStringLiteral("10000"), QStringLiteral("100000"), QStringLiteral("1000000"), QStringLiteral("codes"),
            QStringLiteral("sealed"), QStringLiteral("journalled")};
    printHeading();
    for (const QString& size : sizes) {
        if (size == QStringLiteral("codes"))
            measureCodes(folder);
        else if (size == QStringLiteral("sealed") || size == QStringLiteral("journalled"))
            measureSeals(folder, size);
        else
            measureBook(folder, size.toInt());
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        run(QCoreApplication::arguments());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}

// Measures how soon the first page of a journal of a million rows is there, whatever is looked for.
//
//   lorvan-journal-bench [FOLDER]
//
// The book is made in FOLDER (default: lorvan-journal-bench in TMPDIR) where it is missing, and kept. Each sample opens
// the book anew on both sides. Where a filter has no index, the bare SELECT reads on until it has a page; the program
// hands out what it has found after each slice.

#include "bare_sql.h"
#include "book/book.h"
#include "journal/journal_reading.h"
#include "platform/engine/transaction.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

using namespace lorvan;
using namespace lorvan::bench;
using Clock = std::chrono::steady_clock;

constexpr std::size_t page = 200;
constexpr int samples = 9;

/// Nine of ten rows are of movements; users, codes and groups are old and few; one user made only the first changes.
constexpr auto manyRows = R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1000000)
    INSERT INTO journal (id, at, user, computer, action, subject, day, code, before, after, previous, hash)
    SELECT i, 1700000000000+i*1000, CASE WHEN i<100 THEN 'ΠΑΛΙΟΣ' ELSE 'ΧΡΗΣΤΗΣ '||(i%5) END, 'ταμείο-'||(i%3),
        'modify', CASE WHEN i<300 THEN 'user/ΧΡΗΣΤΗΣ '||(i%5) WHEN i%10=0 THEN 'day/'||(20200101+i/1000)
            ELSE 'movement/'||(i/2) END,
        20200101+i/1000, 100+i%40,
        '{"L_tajeos":0,"aa":'||(i/2)||',"ejoda":0,"epitagh":0,"esoda":'||(i*100)||',"hmeromhnia":20200101,"kvdikos":'
            ||(100+i%40)||',"perigrafh":"Τιμολόγιο πελάτη"}',
        '{"L_tajeos":0,"aa":'||(i/2)||',"ejoda":0,"epitagh":0,"esoda":'||(i*200)||',"hmeromhnia":20200101,"kvdikos":'
            ||(100+i%40)||',"perigrafh":"Τιμολόγιο πελάτη"}',
        hex(randomblob(32)), hex(randomblob(32)) FROM n)";

struct Search {
    const char* name;
    JournalFilter filter;
    const char* condition;
};

struct Sample {
    double first = 0; ///< Milliseconds until the first rows, or the end.
    double whole = 0; ///< Until the page is full, or the end.
    double longestSlice = 0;
    double longestWork = 0; ///< Of a slice, without waiting for the processor.
    std::size_t rows = 0;
};

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// Of this thread: what a slice takes of a machine that does nothing else.
double processorTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void ensureJournal(const BookFiles& files, KeyRing& keys)
{
    const QString complete = files.dataFolder() + QStringLiteral("/complete");
    if (QFile::exists(complete))
        return;
    QDir().mkpath(files.dataFolder());
    createBook(files);
    Connection main =
        Connection::open(files.mainDatabase(), keys.keyFor(files.mainDatabase()), Connection::Access::ReadWrite);
    Transaction transaction(main, Authority::companion());
    main.execute("DELETE FROM journal");
    main.execute(manyRows);
    transaction.commit();
    QFile mark(complete);
    (void)mark.open(QIODevice::WriteOnly);
}

double bareSelect(const BookFiles& files, const QByteArray& key, const char* condition)
{
    const std::string sql =
        std::string("SELECT id, at, user, computer, action, subject, day, code, before, after, previous, hash"
                    " FROM journal WHERE ")
        + condition + " ORDER BY id DESC LIMIT " + std::to_string(page);
    const auto begin = Clock::now();
    const BareConnection bare(files.mainDatabase(), key);
    (void)BareStatement(bare, sql.c_str()).run();
    return millisecondsSince(begin);
}

Sample read(const BookFiles& files, const FileKey& key, const JournalFilter& filter)
{
    Sample sample;
    const auto begin = Clock::now();
    Connection main = Connection::open(files.mainDatabase(), key);
    JournalReading reading(filter);
    while (sample.rows < page && !reading.isAtEnd()) {
        const auto sliceBegin = Clock::now();
        const double worked = processorTime();
        sample.rows += reading.readOn(main, page - sample.rows).size();
        sample.longestSlice = std::max(sample.longestSlice, millisecondsSince(sliceBegin));
        sample.longestWork = std::max(sample.longestWork, processorTime() - worked);
        if (sample.first == 0)
            sample.first = millisecondsSince(begin);
    }
    sample.whole = millisecondsSince(begin);
    return sample;
}

void measure(const Search& search, const BookFiles& files, KeyRing& keys)
{
    const FileKey key = keys.keyFor(files.mainDatabase());
    std::vector<double> bare;
    std::vector<double> first;
    std::vector<double> whole;
    Sample last;
    double longest = 0;
    double longestWork = 0;
    for (int i = 0; i < samples; ++i) {
        bare.push_back(bareSelect(files, key.engineText(), search.condition));
        last = read(files, key, search.filter);
        first.push_back(last.first);
        whole.push_back(last.whole);
        longest = std::max(longest, last.longestSlice);
        longestWork = std::max(longestWork, last.longestWork);
    }
    std::printf("| %s | %.1f | %.1f | %.1f | %.2f | %zu | %.1f | %.1f |\n", search.name, median(bare), median(first),
        median(whole), median(whole) / median(bare), last.rows, longest, longestWork);
}

void run(const QString& folder)
{
    const BookFiles files(folder);
    KeyRing keys(bookPassword());
    ensureJournal(files, keys);
    std::printf("| wanted | bare SELECT | first rows | page full | ratio | rows | longest slice | of it worked |\n"
                "|---|---|---|---|---|---|---|---|\n");
    const Search searches[] = {
        {"everything", {}, "1"},
        {"a day", {.day = QDate(2020, 1, 15)}, "day=20200115"},
        {"a movement", {.subject = QStringLiteral("movement/2000")}, "subject='movement/2000'"},
        {"a user", {.user = QStringLiteral("ΧΡΗΣΤΗΣ 3")}, "user='ΧΡΗΣΤΗΣ 3'"},
        {"a user of long ago", {.user = QStringLiteral("ΠΑΛΙΟΣ")}, "user='ΠΑΛΙΟΣ'"},
        {"a code", {.code = 117}, "code=117"},
        {"movements", {.kind = JournalKind::Movement}, "subject>='movement/' AND subject<'movement0'"},
        {"users", {.kind = JournalKind::User}, "subject>='user/' AND subject<'user0'"},
    };
    for (const Search& search : searches)
        measure(search, files, keys);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        run(QCoreApplication::arguments().value(1, QDir::tempPath() + QStringLiteral("/lorvan-journal-bench")));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}

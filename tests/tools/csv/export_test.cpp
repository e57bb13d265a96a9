#include "book/work_folder.h"
#include "cashbook/cash_book.h"
#include "export/movement_workbook.h"
#include "platform/files/file_calls.h"
#include "support/mount.h"
#include "support/temporary_book.h"
#include "tools/tool_run.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <tuple>
#include <unistd.h>

namespace lorvan::test {
namespace {

const QDate today(2024, 3, 20);

ToolRun exportTo(const TemporaryBook& book, const QString& target, const QString& options = {})
{
    return runTool(today, QStringLiteral("export|%1|%2%3").arg(book.folder(), target, options));
}

QByteArray contentOfFile(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList entriesOf(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QByteArray partOf(const QString& archive, const QString& part)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), archive, part});
    EXPECT_TRUE(unzip.waitForFinished());
    return unzip.readAllStandardOutput();
}

class ExportTest : public testing::Test {
protected:
    void enter(const MovementDraft& draft) const
    {
        Book opened = book.open();
        ASSERT_TRUE(std::holds_alternative<DayView>(CashBook(opened, {}).insert(draft)));
    }

    TemporaryBook book;
    QTemporaryDir place;
    const QString out = place.filePath(QStringLiteral("έξοδος"));
};

/// A disk on which a stray file gets into the folder in the making, and which refuses so many removals.
class Littered : public FileCalls {
public:
    explicit Littered(int refusals)
        : m_refusals(refusals)
    {
        FileCalls::replace(this);
    }
    ~Littered() override { FileCalls::replace(nullptr); }

private:
    int openAt(int folder, const char* name, int flags, mode_t mode) override
    {
        if (name == std::string_view("lock"))
            ::close(FileCalls::openAt(folder, "tmp.SS1234", O_WRONLY | O_CREAT, mode));
        return FileCalls::openAt(folder, name, flags, mode);
    }
    int removeAt(int folder, const char* name, int flags) override
    {
        errno = EACCES;
        return m_refusals-- > 0 ? -1 : FileCalls::removeAt(folder, name, flags);
    }

    int m_refusals;
};

} // namespace

TEST_F(ExportTest, writesEveryTableInPlainFormsAndPasswordsOnlyWhenAsked)
{
    MovementDraft draft =
        incomeOf(QDate(2024, 3, 15), Currency::fromTenThousandths(12'340'000), QStringLiteral("α,\"β\""));
    draft.memorandum = Currency::fromTenThousandths(-1);
    draft.cheque = true;
    enter(draft);
    book.addUser(QStringLiteral("ΑΝΝΑ"), QStringLiteral("μυστικό"));
    book.close(QDate(2024, 3, 15));
    book.execute("INSERT INTO omades (perigrafh, sxolia) VALUES ('Λοιπά', '');"
                 "INSERT INTO opening_difference VALUES (20240316, -5000000)");
    const ToolRun run = exportTo(book, out);
    ASSERT_EQ(run.status, ExitStatus::Done) << run.errors;

    EXPECT_EQ(entriesOf(place.path()), QStringList(QStringLiteral("έξοδος")));
    EXPECT_EQ(entriesOf(out).join(u' '),
        QStringLiteral("codes.csv kinhseis.csv kinhseis.xlsx klhsimotameioy.csv kvdikoi.csv omades.csv"
                       " opening_difference.csv sqlite_sequence.csv taken_imports.csv tameio.csv taytothta.csv"));
    const auto file = [this](const char* name) { return contentOfFile(out + u'/' + QString::fromLatin1(name)); };
    EXPECT_EQ(file("kinhseis.csv").split('\n').at(1).left(41 + 9),
        QByteArray("1,100,2024-03-15,\"α,\"\"β\"\"\",1234.00,0.00,1,\"  100 ").left(41 + 9));
    EXPECT_TRUE(file("kinhseis.csv").endsWith("\",1,-0.0001\n"));
    EXPECT_EQ(file("tameio.csv"), "aa,hmeromhnia,esoda,ejoda,ypoloipo\n1,2024-03-15,1234.00,0.00,1234.00\n");
    EXPECT_EQ(file("opening_difference.csv"), "day,amount\n2024-03-16,-500.00\n");
    EXPECT_EQ(file("omades.csv"), "aa,sxolia,perigrafh\n1,,Πωλήσεις\n2,\"\",Λοιπά\n");
    EXPECT_EQ(file("klhsimotameioy.csv"), "aa,hmeraklhsimatos\n1,2024-03-15\n");
    EXPECT_EQ(file("codes.csv"), "uname,r_eggrafes,r_klhsimo,r_kvdikoi\nΑΝΝΑ,0,0,0\n");

    const QString second = place.filePath(QStringLiteral("second"));
    ASSERT_EQ(exportTo(book, second, QStringLiteral("|--passwords")).status, ExitStatus::Done);
    EXPECT_TRUE(contentOfFile(second + QStringLiteral("/codes.csv")).contains("\nΑΝΝΑ,μυστικό,0"));
}

TEST_F(ExportTest, takesAnEmptyFolderAndNoOtherAndPutsNothingElseIntoIt)
{
    QDir().mkdir(out);
    EXPECT_EQ(exportTo(book, out).status, ExitStatus::Done);
    const auto before = contentOf(out);
    for (const QString& target : {out, out + QStringLiteral("/codes.csv"), place.filePath(QStringLiteral("a/b"))}) {
        EXPECT_EQ(exportTo(book, target).status, ExitStatus::Failed) << target.toStdString();
        EXPECT_EQ(contentOf(out), before);
    }
    EXPECT_EQ(entriesOf(place.path()), QStringList(QStringLiteral("έξοδος")));

    for (const auto& [refusals, status, left] : {std::tuple(0, ExitStatus::Done, ""),
             std::tuple(1, ExitStatus::Done, ""), std::tuple(99, ExitStatus::Found, "lock, tmp.SS1234")}) {
        const QString littered = place.filePath(QStringLiteral("with %1").arg(refusals));
        const Littered disk(refusals);
        const ToolRun run = exportTo(book, littered);
        EXPECT_EQ(run.status, status) << refusals << run.errors;
        EXPECT_NE(run.errors.find(left), std::string::npos) << run.errors;
        EXPECT_EQ(entriesOf(littered).size(), entriesOf(out).size() + (*left ? 2 : 0)) << refusals;
    }
}

TEST_F(ExportTest, clearsAwayWhatAnEarlierReleaseLeft)
{
    const QString left = WorkFolder::prefixHere(QStringLiteral(".lorvan-export-"));
    for (const char* name : {"aB3xY9", "inUse1", "0123456789abcdef"})
        ASSERT_TRUE(QDir(place.path()).mkdir(left + QLatin1String(name)));
    const Folder inUse(place.filePath(left + QStringLiteral("inUse1")));
    ASSERT_EQ(::flock(inUse.descriptor(), LOCK_EX), 0);
    ASSERT_EQ(exportTo(book, out).status, ExitStatus::Done);
    EXPECT_EQ(entriesOf(place.path()), (QStringList{left + QStringLiteral("inUse1"), QStringLiteral("έξοδος")}));
}

TEST_F(ExportTest, showsTheLastCommitWhileAnotherWritesAndLeavesTheBookAlone)
{
    enter(incomeOf(today, cents(100)));
    Connection writer = book.openMain();
    writer.execute("BEGIN IMMEDIATE; UPDATE kinhseis SET esoda=7; DELETE FROM kvdikoi");
    ASSERT_EQ(exportTo(book, out).status, ExitStatus::Done);
    EXPECT_TRUE(contentOfFile(out + QStringLiteral("/kinhseis.csv")).contains(",1.00,0.00,"));
    EXPECT_EQ(contentOfFile(out + QStringLiteral("/kvdikoi.csv")).count('\n'), 3);
    writer.execute("COMMIT"); // nobody holds a lock any more
}

TEST_F(ExportTest, leavesNothingWhenTheDiskRunsFull)
{
    book.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<6000)"
                 " INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda)"
                 " SELECT 100, 20240101, hex(randomblob(10)), 10000, 0 FROM n");
    const QString disk = place.filePath(QStringLiteral("disk"));
    QDir().mkdir(disk);
    if (!Mount::smallDisk(disk))
        GTEST_SKIP() << "SKIPPED: the system does not let a test mount a small disk";
    EXPECT_EQ(exportTo(book, disk + QStringLiteral("/out")).status, ExitStatus::Failed);
    EXPECT_EQ(entriesOf(disk), QStringList());
    Mount::undo(disk);
}

TEST(MovementWorkbook, holdsNumbersAndDatesAndGoesOnInFurtherSheets)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xlsx"));
    MovementWorkbook workbook(path, 3);
    for (qint64 key = 1; key <= 5; ++key)
        workbook.add({incomeOf(QDate(2024, 3, 15), cents(12'345), QStringLiteral("α<β")), key});
    workbook.finish();
    EXPECT_EQ(entriesOf(folder.path()), QStringList(QStringLiteral("a.xlsx")));
    const QByteArray first = partOf(path, QStringLiteral("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(first.contains("state=\"frozen\"") && first.contains("<col min=\"4\" max=\"4\" width=\"40."));
    EXPECT_TRUE(first.contains("<v>45366</v>") && first.contains("<v>123.45</v>") && first.contains("α&lt;β"));
    const QByteArray last = partOf(path, QStringLiteral("xl/worksheets/sheet3.xml"));
    EXPECT_EQ(last.count("<row "), 2);
    EXPECT_TRUE(last.contains("Ημερομηνία") && last.contains("<v>5</v>"));
}

} // namespace lorvan::test

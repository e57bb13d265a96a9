#include "cashbook/cash_book.h"
#include "export/movement_workbook.h"
#include "platform/files/file_calls.h"
#include "platform/files/work_folder.h"
#include "tools/tool_run.h"

#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <tuple>
#include <unistd.h>

namespace lorvan::test {
namespace {

QStringList entriesOf(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

class ExportTest : public CommandTest {
protected:
    void enter(const MovementDraft& draft) const
    {
        Book opened = book.open();
        ASSERT_TRUE(std::holds_alternative<ChangedDay>(CashBook(opened, by()).insert(draft)));
    }
    [[nodiscard]] QByteArray written(const char* name) const
    {
        return readFile(words("#/έξοδος/") + QLatin1String(name));
    }
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
    MovementDraft draft = incomeOf(QDate(2024, 3, 15), Currency::fromTenThousandths(12'340'000), "α,\"β\"");
    draft.memorandum = Currency::fromTenThousandths(-1);
    draft.cheque = true;
    enter(draft);
    book.addUser("ΑΝΝΑ", "μυστικό");
    book.close(QDate(2024, 3, 15));
    book.execute("INSERT INTO omades (perigrafh, sxolia) VALUES ('Λοιπά', '');"
                 "INSERT INTO opening_difference VALUES (20240316, -5000000)");
    const ToolRun exported = run("export|@|#/έξοδος");
    ASSERT_EQ(exported.status, ExitStatus::Done) << exported.errors;

    EXPECT_EQ(entriesOf(words("#")), QStringList("έξοδος"));
    EXPECT_EQ(entriesOf(words("#/έξοδος")).join(u' '),
        "codes.csv journal.csv kinhseis.csv kinhseis.xlsx klhsimotameioy.csv kvdikoi.csv omades.csv"
        " opening_difference.csv seals.csv sqlite_sequence.csv taken_imports.csv tameio.csv taytothta.csv");
    EXPECT_TRUE(written("kinhseis.csv").contains("\n1,100,2024-03-15,\"α,\"\"β\"\"\",1234.00,0.00,1,\"  100 "));
    EXPECT_TRUE(written("kinhseis.csv").endsWith("\",1,-0.0001\n"));
    EXPECT_EQ(written("tameio.csv"), "aa,hmeromhnia,esoda,ejoda,ypoloipo\n1,2024-03-15,1234.00,0.00,1234.00\n");
    EXPECT_EQ(written("opening_difference.csv"), "day,amount\n2024-03-16,-500.00\n");
    EXPECT_EQ(written("omades.csv"), "aa,sxolia,perigrafh\n1,,Πωλήσεις\n2,\"\",Λοιπά\n");
    EXPECT_EQ(written("klhsimotameioy.csv"), "aa,hmeraklhsimatos\n1,2024-03-15\n");
    EXPECT_EQ(written("codes.csv"), "uname,r_eggrafes,r_klhsimo,r_kvdikoi\nΑΝΝΑ,0,0,0\n");

    ASSERT_EQ(run("export|@|#/second|--passwords").status, ExitStatus::Done);
    EXPECT_TRUE(readFile(words("#/second/codes.csv")).contains("\nΑΝΝΑ,μυστικό,0"));
}

TEST_F(ExportTest, takesAnEmptyFolderAndNoOtherAndPutsNothingElseIntoIt)
{
    QDir().mkdir(words("#/έξοδος"));
    EXPECT_EQ(run("export|@|#/έξοδος").status, ExitStatus::Done);
    for (const char* const line : {"export|@|#/έξοδος", "export|@|#/έξοδος/codes.csv", "export|@|#/a/b"})
        expectRefusal(line, "");

    for (const auto& [refusals, status, left] : {std::tuple(0, ExitStatus::Done, ""),
             std::tuple(1, ExitStatus::Done, ""), std::tuple(99, ExitStatus::Found, "lock, tmp.SS1234")}) {
        const QTemporaryDir littered;
        const Littered disk(refusals);
        const ToolRun exported = runTool(today, words("export|@|") + littered.path());
        EXPECT_EQ(exported.status, status) << refusals << exported.errors;
        expectParts(exported.errors, {left});
        EXPECT_EQ(entriesOf(littered.path()).size(), entriesOf(words("#/έξοδος")).size() + (*left ? 2 : 0)) << refusals;
    }
}

TEST_F(ExportTest, clearsAwayWhatAnEarlierReleaseLeft)
{
    const QString left = beside.filePath(WorkFolder::prefixHere(".lorvan-export-"));
    for (const char* name : {"aB3xY9", "inUse1", "0123456789abcdef"})
        ASSERT_TRUE(QDir().mkdir(left + QLatin1String(name)));
    const Folder inUse(left + "inUse1");
    ASSERT_EQ(::flock(inUse.descriptor(), LOCK_EX), 0);
    ASSERT_EQ(run("export|@|#/έξοδος").status, ExitStatus::Done);
    EXPECT_EQ(entriesOf(words("#")).size(), 2);
    EXPECT_TRUE(QFile::exists(left + "inUse1"));
}

TEST(MovementWorkbook, holdsNumbersAndDatesAndGoesOnInFurtherSheets)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    MovementWorkbook workbook(path, 3);
    for (qint64 key = 1; key <= 5; ++key)
        workbook.add({incomeOf(QDate(2024, 3, 15), cents(12'345), "α<β"), key});
    workbook.finish();
    EXPECT_EQ(entriesOf(folder.path()), QStringList("a.xlsx"));
    expectParts(partOf(path, "xl/worksheets/sheet1.xml").toStdString(),
        {"state=\"frozen\"", "<col min=\"4\" max=\"4\" width=\"40.", "<v>45366</v>", "<v>123.45</v>", "α&lt;β"});
    const QByteArray last = partOf(path, "xl/worksheets/sheet3.xml");
    EXPECT_EQ(last.count("<row "), 2);
    expectParts(last.toStdString(), {"Ημερομηνία", "<v>5</v>"});
}

} // namespace lorvan::test

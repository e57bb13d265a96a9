#include "windows/preview/printing_test.h"

#include <QStandardPaths>

#include <iostream>

namespace lorvan::test {
namespace {

/// A print server of the test's own, with one queue, which keeps what it is given as files.
class PrintServer {
public:
    PrintServer()
    {
        writeFiles();
        qputenv("CUPS_SERVER", path("cups.sock").toUtf8());
        const QString program = QStandardPaths::findExecutable("cupsd", {"/usr/sbin", "/sbin"});
        if (program.isEmpty())
            return;
        m_process.start(program, {"-f", "-c", path("cupsd.conf"), "-s", path("cups-files.conf")});
        m_runs = comesTrue([this] {
            return QFile::exists(path("cups.sock"))
                && tell("lpadmin", {"-p", queue, "-E", "-v", "file:///dev/null", "-m", "raw"});
        });
    }
    ~PrintServer()
    {
        end();
        qunsetenv("CUPS_SERVER");
    }
    Q_DISABLE_COPY_MOVE(PrintServer)

    static constexpr const char* queue = "Tameio";

    [[nodiscard]] bool runs() const { return m_runs; }
    bool refuseJobs() { return tell("cupsreject", {queue}); }
    void end()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// What was handed over, by number from 1.
    [[nodiscard]] QString documentOf(int job) const { return path("spool/d%1-001").arg(job, 5, 10, QLatin1Char('0')); }
    /// Whether the server's record of the job comes to hold the words.
    [[nodiscard]] bool tellsOf(int job, const QByteArray& words) const
    {
        const QString record = path("spool/c%1").arg(job, 5, 10, QLatin1Char('0'));
        return comesTrue([&] { return readFile(record).contains(words); });
    }

private:
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(name); }

    void write(const char* name, QString text) const
    {
        writeFile(path(name), text.replace(u'@', m_folder.path()).toUtf8());
    }
    void writeFiles() const
    {
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7055));
        for (const char* const folder : {"root", "spool/tmp", "cache", "state", "log"})
            QDir(m_folder.path()).mkpath(folder);
        write("cups-files.conf",
            "ServerRoot @/root\nRequestRoot @/spool\nCacheDir @/cache\nStateDir @/state\nTempDir "
            "@/spool/tmp\nErrorLog @/log/error\nAccessLog @/log/access\nPageLog @/log/page\n"
            "FileDevice Yes\n");
        write("cupsd.conf",
            "Listen @/cups.sock\nBrowsing No\nDefaultAuthType None\nPreserveJobFiles Yes\n"
            "<Location />\nAllow all\n</Location>\n<Location /admin>\nAllow all\n</Location>\n"
            "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
    }
    static bool tell(const char* program, std::initializer_list<const char*> arguments)
    {
        QStringList texts;
        for (const char* const each : arguments)
            texts += each;
        const QString found = QStandardPaths::findExecutable(program, {"/usr/sbin"});
        return !found.isEmpty() && QProcess::execute(found, texts) == 0;
    }

    QTemporaryDir m_folder{"/tmp/print-XXXXXX"}; // the name of a socket must be short
    QProcess m_process;
    bool m_runs = false;
};

ReportDocument threePages()
{
    const QString format = "<5000";
    ReportDocument document;
    for (int row = 1; row <= 130; ++row)
        document.AddTableRow(format, QString(), {QString("ΓΡΑΜΜΗ%1").arg(row)});
    document.EndDoc();
    return document;
}

class ReportPrinting : public FrameTest<PrintServer> {
protected:
    void SetUp() override
    {
        if (!printSystem.runs())
            GTEST_SKIP() << "no print server can be started here: cups-daemon and cups-client are missing";
        std::cout << "printing to a print server of the test's own\n";
        open(threePages(), " Ταμείο ημέρας");
        ASSERT_TRUE(comesTrue([this] { return frame.windowTitle().endsWith("  στον  Tameio"); }));
    }
};

int pagesIn(const QString& pdf)
{
    return QString(outputOf("pdfinfo", {pdf})).section("Pages:", 1).section(u'\n', 0, 0).toInt();
}

} // namespace

TEST_F(ReportPrinting, handsOverAllPagesOrTheOneShown)
{
    user.press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(state(), "Στάλθηκε στον εκτυπωτή Tameio.");
    EXPECT_TRUE(printSystem.tellsOf(1, "Ταμείο ημέρας"));
    EXPECT_EQ(pagesIn(printSystem.documentOf(1)), 3);

    user.press(Qt::Key_PageDown);
    trigger("menu(15)");
    EXPECT_EQ(pagesIn(printSystem.documentOf(2)), 1);
    const QString text = QString::fromUtf8(outputOf("pdftotext", {printSystem.documentOf(2), "-"}));
    EXPECT_TRUE(text.contains("ΓΡΑΜΜΗ70") && text.contains("Σελίδα 2"));
    EXPECT_FALSE(text.contains("ΓΡΑΜΜΗ1\n"));
}

TEST_F(ReportPrinting, aJobThatIsNotTakenIsTold)
{
    trigger("menu(20)");
    EXPECT_NE(state(), QString());
    ASSERT_TRUE(printSystem.refuseJobs());
    boxes.expect(warningWith("Η εκτύπωση στον Tameio απέτυχε."));
    trigger("menu(20)");
    printSystem.end();
    boxes.expect(warningWith("Η εκτύπωση στον Tameio απέτυχε."));
    trigger("menu(15)");
    EXPECT_EQ(state(), QString());
}

} // namespace lorvan::test

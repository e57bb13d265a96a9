#include "preview/report_saver.h"
#include "windows/preview/printing_test.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <iostream>

namespace lorvan::test {
namespace {

QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// A print server of the test's own, with one queue, which keeps what it is given as files.
class PrintServer {
public:
    PrintServer()
    {
        writeFiles();
        qputenv("CUPS_SERVER", path("cups.sock").toUtf8());
        const QString program = QStandardPaths::findExecutable(
            QStringLiteral("cupsd"), {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
        if (program.isEmpty())
            return;
        m_process.start(program,
            {QStringLiteral("-f"), QStringLiteral("-c"), path("cupsd.conf"), QStringLiteral("-s"),
                path("cups-files.conf")});
        m_runs = QTest::qWaitFor([this] { return QFile::exists(path("cups.sock")); })
            && tell("lpadmin", {"-p", queue, "-E", "-v", "file:///dev/null", "-m", "raw"});
    }
    ~PrintServer()
    {
        end();
        qunsetenv("CUPS_SERVER");
    }
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

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
    /// The server's record of the job.
    [[nodiscard]] QByteArray recordOf(int job) const
    {
        QFile record(path("spool/c%1").arg(job, 5, 10, QLatin1Char('0')));
        return QTest::qWaitFor([&record] { return record.open(QIODevice::ReadOnly); }) ? record.readAll()
                                                                                       : QByteArray();
    }

private:
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    void write(const char* name, QString text) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.replace(u'@', m_folder.path()).toUtf8());
    }
    void writeFiles() const
    {
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7055));
        for (const char* const folder : {"root", "spool/tmp", "cache", "state", "log"})
            QDir(m_folder.path()).mkpath(QLatin1String(folder));
        write("cups-files.conf",
            QStringLiteral("ServerRoot @/root\nRequestRoot @/spool\nCacheDir @/cache\nStateDir @/state\nTempDir "
                           "@/spool/tmp\nErrorLog @/log/error\nAccessLog @/log/access\nPageLog @/log/page\n"
                           "FileDevice Yes\n"));
        write("cupsd.conf",
            QStringLiteral("Listen @/cups.sock\nBrowsing No\nDefaultAuthType None\nPreserveJobFiles Yes\n"
                           "<Location />\nAllow all\n</Location>\n<Location /admin>\nAllow all\n</Location>\n"
                           "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n"));
    }
    static bool tell(const char* program, std::initializer_list<const char*> arguments)
    {
        QStringList texts;
        for (const char* const each : arguments)
            texts += QLatin1String(each);
        const QString found = QStandardPaths::findExecutable(QLatin1String(program), {QStringLiteral("/usr/sbin")});
        return !found.isEmpty() && QProcess::execute(found, texts) == 0;
    }

    QTemporaryDir m_folder{QStringLiteral("/tmp/print-XXXXXX")}; // the name of a socket must be short
    QProcess m_process;
    bool m_runs = false;
};

ReportDocument threePages()
{
    const QString format = QStringLiteral("<5000");
    ReportDocument document;
    for (int row = 1; row <= 130; ++row)
        document.AddTableRow(format, QString(), {QStringLiteral("ΓΡΑΜΜΗ%1").arg(row)});
    document.EndDoc();
    return document;
}

class ReportPrinting : public testing::Test {
protected:
    ReportPrinting()
        : frame(printers, saver)
        , user(frame)
    {
    }
    void SetUp() override
    {
        if (!server.runs())
            GTEST_SKIP() << "no print server can be started here: cups-daemon and cups-client are missing";
        std::cout << "printing to a print server of the test's own\n";
        frame.open(threePages(), QStringLiteral(" Ταμείο ημέρας"), QStringLiteral("Ταμείο"));
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
        ASSERT_TRUE(QTest::qWaitFor([this] { return frame.windowTitle().endsWith(QStringLiteral("  στον  Tameio")); }));
    }
    void trigger(const char* action) const { frame.findChild<QAction*>(QLatin1String(action))->trigger(); }
    [[nodiscard]] QString state() const { return user.text(QStringLiteral("state")); }

    PrintServer server;
    BoxScript boxes;
    Printers printers;
    ReportSaver saver;
    Ektypvsh frame;
    Driver user;
};

int pagesIn(const QString& pdf)
{
    return outputOf(QStringLiteral("pdfinfo"), {pdf}).section(QStringLiteral("Pages:"), 1).section(u'\n', 0, 0).toInt();
}

} // namespace

TEST_F(ReportPrinting, handsOverAllPagesOrTheOneShown)
{
    user.press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(state(), QStringLiteral("Στάλθηκε στον εκτυπωτή Tameio."));
    EXPECT_TRUE(server.recordOf(1).contains("Ταμείο ημέρας"));
    EXPECT_EQ(pagesIn(server.documentOf(1)), 3);

    user.press(Qt::Key_PageDown);
    trigger("menu(15)");
    EXPECT_EQ(pagesIn(server.documentOf(2)), 1);
    const QString text = outputOf(QStringLiteral("pdftotext"), {server.documentOf(2), QStringLiteral("-")});
    EXPECT_TRUE(text.contains(QStringLiteral("ΓΡΑΜΜΗ70")) && text.contains(QStringLiteral("Σελίδα 2")));
    EXPECT_FALSE(text.contains(QStringLiteral("ΓΡΑΜΜΗ1\n")));
}

TEST_F(ReportPrinting, aJobThatIsNotTakenIsTold)
{
    trigger("menu(20)");
    EXPECT_NE(state(), QString());
    ASSERT_TRUE(server.refuseJobs());
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("Η εκτύπωση στον Tameio απέτυχε."))));
    trigger("menu(20)");
    server.end();
    boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("Η εκτύπωση στον Tameio απέτυχε."))));
    trigger("menu(15)");
    EXPECT_EQ(state(), QString());
}

} // namespace lorvan::test

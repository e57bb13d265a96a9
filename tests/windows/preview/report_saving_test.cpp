#include "preview/report_saver.h"
#include "support/mount.h"
#include "windows/preview/printing_test.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace lorvan::test {
namespace {

ReportDocument report(int rows)
{
    const QString format = QStringLiteral("<1000");
    ReportDocument document;
    document.SetHeader(QStringLiteral("Ταμείο"));
    for (int row = 1; row <= rows; ++row)
        document.AddTableRow(format, QString(), {QString::number(row)});
    document.EndDoc();
    return document;
}

constexpr int someSeconds = 400'000; // rows that take that long to save

class ReportSaving : public testing::Test {
protected:
    ReportSaving()
        : frame(printers, saver)
        , user(frame)
    {
    }
    void open(int rows)
    {
        frame.open(report(rows), QStringLiteral(" Ταμείο"), QStringLiteral("Ταμείο"));
        frame.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    }
    /// Runs the action and gives the name in its dialog.
    void save(const char* action, const QString& name)
    {
        boxes.whenShown(QStringLiteral("saveFile"), [this, name](QWidget& dialog) {
            const Driver driver(dialog);
            suggested = driver.find<QLineEdit>(QStringLiteral("fileNameEdit")).text();
            driver.press(Qt::Key_A, Qt::ControlModifier);
            driver.paste(folder.filePath(name));
            driver.press(Qt::Key_Return);
            if (dialog.isVisible())
                dialog.close();
        });
        frame.findChild<QAction*>(QLatin1String(action))->trigger();
    }
    [[nodiscard]] QByteArray content(const char* name) const
    {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }
    void write(const char* name) const
    {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("before");
    }
    [[nodiscard]] QString state() const { return user.text(QStringLiteral("state")); }

    NoPrinters noPrinters;
    BoxScript boxes;
    QTemporaryDir folder;
    Printers printers;
    ReportSaver saver;
    Ektypvsh frame;
    Driver user;
    QString suggested;
};

ExpectedBox replace(const QString& title, const QString& name, QMessageBox::StandardButton answer)
{
    return {QMessageBox::Warning, title, QStringLiteral("Το %1 υπάρχει ήδη.\nΝα αντικατασταθεί;").arg(name),
        QMessageBox::Yes | QMessageBox::No, answer};
}

} // namespace

TEST_F(ReportSaving, eachKindOfFileByItsEnding)
{
    open(3);
    const struct {
        const char* action;
        const char* typed;
        const char* written;
        QByteArray start;
    } cases[] = {
        {"savePdf", "α", "α.pdf", "%PDF"},
        {"saveTable", "β", "β.xlsx", "PK"},
        {"saveTable", "γ.csv", "γ.csv", "\xEF\xBB\xBFΤαμείο\r\n1\r\n2\r\n3\r\n"},
    };
    for (const auto& each : cases) {
        save(each.action, QString::fromUtf8(each.typed));
        EXPECT_EQ(suggested.section(u'.', 0, 0), QStringLiteral("Ταμείο"));
        EXPECT_TRUE(content(each.written).startsWith(each.start)) << each.written;
        EXPECT_TRUE(state().endsWith(QString::fromUtf8(each.written)));
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 3);
}

TEST_F(ReportSaving, asksBeforeAFileIsReplaced)
{
    open(1);
    write("α.pdf");
    const QString title = QStringLiteral("Αποθήκευση ως PDF");
    boxes.expect(replace(title, QStringLiteral("α.pdf"), QMessageBox::No));
    save("savePdf", QStringLiteral("α"));
    EXPECT_EQ(content("α.pdf"), "before");
    boxes.expect(replace(title, QStringLiteral("α.pdf"), QMessageBox::Yes));
    save("savePdf", QStringLiteral("α"));
    EXPECT_TRUE(content("α.pdf").startsWith("%PDF"));
}

TEST_F(ReportSaving, aFolderThatMayNotBeWrittenIsTold)
{
    open(1);
    if (!Mount::readOnly(folder.path()))
        GTEST_SKIP() << "no folder can be mounted for reading only here";
    for (const char* const action : {"savePdf", "saveTable"}) {
        boxes.expect(partly(warning(QStringLiteral("Προσοχή"), QStringLiteral("δεν αποθηκεύτηκε."))));
        save(action, QStringLiteral("α"));
        EXPECT_EQ(state(), QString());
    }
    Mount::undo(folder.path());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(ReportSaving, aLongOneIsGivenUp)
{
    open(someSeconds);
    write("α.pdf");
    boxes.expect(replace(QStringLiteral("Αποθήκευση ως PDF"), QStringLiteral("α.pdf"), QMessageBox::Yes));
    bool wasCounted = false;
    boxes.whenShown(QStringLiteral("progress"), [&wasCounted](QWidget& progress) {
        const Driver driver(progress);
        auto* const count = progress.findChild<QLabel*>(QStringLiteral("count"));
        wasCounted = QTest::qWaitFor([count] { return count->text().startsWith(QStringLiteral("Σελίδες: ")); }, 60'000);
        driver.press(Qt::Key_Return);
    });
    save("savePdf", QStringLiteral("α"));
    EXPECT_TRUE(wasCounted);
    EXPECT_EQ(content("α.pdf"), "before");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(frame.isVisible());
}

TEST_F(ReportSaving, theFrameIsClosedWhileItSaves)
{
    open(someSeconds);
    boxes.whenShown(QStringLiteral("progress"), [this](QWidget&) { frame.unload(); });
    save("savePdf", QStringLiteral("α"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_FALSE(frame.isVisible());
}

} // namespace lorvan::test

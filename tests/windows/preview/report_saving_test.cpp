#include "support/mount.h"
#include "windows/preview/printing_test.h"

namespace lorvan::test {
namespace {

ReportDocument report(int rows)
{
    const QString format = "<1000";
    ReportDocument document;
    document.SetHeader("Ταμείο");
    for (int row = 1; row <= rows; ++row)
        document.AddTableRow(format, QString(), {QString::number(row)});
    document.EndDoc();
    return document;
}

constexpr int someSeconds = 400'000; // rows that take that long to save

class ReportSaving : public FrameTest<NoPrinters> {
protected:
    /// Runs the action and gives the name in its dialog.
    void save(const char* action, const QString& name)
    {
        boxes.whenShown("saveFile", [this, name](QWidget& dialog) {
            const Driver driver(dialog);
            suggested = driver.find<QLineEdit>("fileNameEdit").text();
            driver.press(Qt::Key_A, Qt::ControlModifier);
            driver.paste(folder.filePath(name));
            driver.press(Qt::Key_Return);
            if (dialog.isVisible())
                dialog.close();
        });
        trigger(action);
    }
    [[nodiscard]] QByteArray content(const char* name) const { return readFile(folder.filePath(name)); }
    void writeBefore() const { writeFile(folder.filePath("α.pdf"), "before"); }
    void expectReplaceQuestion(QMessageBox::StandardButton answer)
    {
        boxes.expect(
            yesNo(QMessageBox::Warning, "Αποθήκευση ως PDF", "Το α.pdf υπάρχει ήδη.\nΝα αντικατασταθεί;", answer));
    }

    QTemporaryDir folder;
    QString suggested;
};

} // namespace

TEST_F(ReportSaving, eachKindOfFileByItsEndingAndNoneIsReplacedUnasked)
{
    open(report(3));
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
        save(each.action, each.typed);
        EXPECT_EQ(suggested.section(u'.', 0, 0), "Ταμείο");
        EXPECT_TRUE(content(each.written).startsWith(each.start)) << each.written;
        EXPECT_TRUE(state().endsWith(each.written));
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 3);

    writeBefore();
    expectReplaceQuestion(QMessageBox::No);
    save("savePdf", "α");
    EXPECT_EQ(content("α.pdf"), "before");
    expectReplaceQuestion(QMessageBox::Yes);
    save("savePdf", "α");
    EXPECT_TRUE(content("α.pdf").startsWith("%PDF"));
}

TEST_F(ReportSaving, aFolderThatMayNotBeWrittenIsTold)
{
    open(report(1));
    if (!Mount::readOnly(folder.path()))
        GTEST_SKIP() << "no folder can be mounted for reading only here";
    for (const char* const action : {"savePdf", "saveTable"}) {
        boxes.expect(warningWith("δεν αποθηκεύτηκε."));
        save(action, "α");
        EXPECT_EQ(state(), QString());
    }
    Mount::undo(folder.path());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(ReportSaving, aLongOneIsGivenUp)
{
    open(report(someSeconds));
    writeBefore();
    expectReplaceQuestion(QMessageBox::Yes);
    bool wasCounted = false;
    boxes.whenShown("progress", [&wasCounted](QWidget& progress) {
        const Driver driver(progress);
        auto* const count = progress.findChild<QLabel*>("count");
        wasCounted = comesTrue([count] { return count->text().startsWith("Σελίδες: "); });
        driver.press(Qt::Key_Return);
        EXPECT_TRUE(progress.findChild<QWidget*>("cancel")->isEnabled()) << "one Enter too many";
        driver.press(Qt::Key_Escape);
    });
    save("savePdf", "α");
    EXPECT_TRUE(wasCounted);
    EXPECT_EQ(content("α.pdf"), "before");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(frame.isVisible());
}

TEST_F(ReportSaving, theFrameIsClosedWhileItSaves)
{
    open(report(someSeconds));
    boxes.whenShown("progress", [this](QWidget&) { frame.unload(); });
    save("savePdf", "α");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_FALSE(frame.isVisible());
}

} // namespace lorvan::test

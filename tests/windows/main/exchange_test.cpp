#include "windows/main_window_test.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>

namespace lorvan::test {
namespace {

class ExchangeTest : public MainWindowTest {
protected:
    void choose(const char* tool) { user().find("tools").findChild<QAction*>(tool)->trigger(); }
    /// Gives a path in the next dialog for files.
    void giveFile(const QString& path)
    {
        boxes.whenShown("saveFile", [path](QWidget& dialog) {
            const Driver driver(dialog);
            driver.press(Qt::Key_A, Qt::ControlModifier);
            driver.paste(path);
            driver.press(Qt::Key_Return);
            if (dialog.isVisible())
                dialog.close();
        });
    }
    void pack(const QString& month, const QString& path)
    {
        giveFile(path);
        boxes.whenShown("monthPackage", [this, month](QWidget& shown) {
            const Driver driver(shown);
            driver.find<QLineEdit>("month").setText(month);
            driver.click(driver.find("write"));
            told = driver.text("state");
            shown.close();
        });
        choose("monthPackage");
    }

    QTemporaryDir folder;
    const QString zip = folder.filePath("πακέτο.zip");
    QString told;
};

} // namespace

TEST_F(ExchangeTest, thePackageOfAMonthIsWrittenAndTaken)
{
    addMovement(incomeOf(today, cents(500), "Α"));
    start(allRights);
    boxes.expect(information("Πακέτο μήνα", "Ο μήνας Φεβρουάριος 2024 δεν έχει κινήσεις."));
    pack("2-2024", zip);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    boxes.expect(partly(warning("Προσοχή", "δεν υπάρχει τέτοιο αρχείο ή φάκελος.")));
    pack("3-2024", folder.filePath("missing/a.zip"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    pack("3-2024", zip);
    EXPECT_EQ(told, "Μάρτιος 2024: το πακέτο γράφτηκε.");
    const QByteArray first = readFile(zip);
    boxes.expect(partly(yesNo(QMessageBox::Warning, "Πακέτο μήνα", "Να αντικατασταθεί;", QMessageBox::No)));
    pack("3-2024", zip);
    EXPECT_EQ(readFile(zip), first);

    giveFile(zip);
    boxes.expect(information("Εισαγωγή CSV", "Η εισαγωγή έγινε."));
    choose("importZip");
    EXPECT_EQ(user().text("Bar1(2)"), "10,00") << "the page shows it";
    EXPECT_EQ(QDir(book.path("backup")).entryList({"lorvan-2*.tar"}).size(), 1);
    writeFile(zip, first.first(first.size() / 2));
    giveFile(zip);
    boxes.expect(partly(warning("Προσοχή", "δεν διαβάζεται ως φάκελος ή αρχείο ZIP")));
    choose("importZip");
    EXPECT_TRUE(boxes.allSeen());
    EXPECT_EQ(user().text("Bar1(2)"), "10,00");
}

} // namespace lorvan::test

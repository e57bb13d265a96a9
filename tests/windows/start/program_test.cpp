#include "marker/usage_marker.h"
#include "windows/program_run.h"

namespace lorvan::test {
namespace {

/// The start: what it says when there is no book to sign in to.
class ProgramStart : public ProgramTest { };

/// The upgrade of an older book, from sign-in to the main window.
class ProgramUpgrade : public ProgramTest {
protected:
    void SetUp() override
    {
        book.makeVersionless();
        book.execute(
            "DELETE FROM taytothta; INSERT INTO taytothta (ariumos) VALUES (1);"
            "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda) VALUES (100, 20240312, 'α', 10000, 0);"
            "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240312, 10000, 0, 10000),"
            " (20240313, 0, 0, 20000), (20240314, 0, 0, 30000)");
        startToSignIn();
    }
    /// Signs in to a book that does not open.
    void expectEndUnchanged()
    {
        const auto before = files();
        EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
        EXPECT_EQ(mainWindow(), nullptr);
        EXPECT_EQ(files(), before);
    }
};

} // namespace

TEST_F(ProgramStart, withoutAUsablePathItWritesItsOwnFolderAndEnds)
{
    ASSERT_TRUE(QFile::remove(pathFileName()));
    boxes.expect(information("Προσοχή",
        "Η διαδρομή για τη βάση δεν βρέθηκε, και ορίζετε ως τρέχουσα η διαδρομή του προγράμματος\n"
        " H διαδρομή φυλάσετε μέσα στο αρχείο diadromh.dat"));
    EXPECT_FALSE(start());
    EXPECT_EQ(readFile(programFolder.filePath("DIADROMH.dat")), programFolder.path().toUtf8() + "\r\n");
    EXPECT_EQ(namesIn(programFolder.path()), "DIADROMH.dat");
    EXPECT_EQ(shownWindow("Login"), nullptr);
}

TEST_F(ProgramStart, aFolderWithoutABookOfTodaysFormatIsToldAndLeftAsItIs)
{
    const QString main = book.files().mainDatabase();
    ASSERT_TRUE(QFile::remove(main));
    const QString title = "Προσοχή στη διαδρομή";
    boxes.expect(
        withDetails(stop(title, "Τα αρχεία του προγράμματος δεν βρέθηκαν. Ορίστε τη διαδρομή ξανά."), book.folder()));
    EXPECT_FALSE(start());
    EXPECT_FALSE(QFile::exists(main));

    writeFile(main, QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4076, '\0'));
    const auto before = files();
    boxes.expect(partly(stop(title, "lorvan-data import")));
    EXPECT_FALSE(start());
    EXPECT_EQ(files(), before);
}

TEST_F(ProgramStart, aSecondInstanceEndsInSilenceAndBringsTheFirstForward)
{
    startToSignIn();
    loginWindow().showMinimized();
    QWidget elsewhere;
    showActive(elsewhere);
    Program second(programFolder.filePath("lorvan"), fixedClock());
    EXPECT_FALSE(second.start());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&loginWindow(), patience));
    EXPECT_FALSE(loginWindow().isMinimized());
}

TEST_F(ProgramStart, leadsToTheBooksOnlyIfTheirProgramStandsBeside)
{
    const QString door = programFolder.filePath("lorvan-books");
    for (const bool stands : {false, true}) {
        if (stands) {
            writeFile(door, "x");
            QFile::setPermissions(door, QFile::ReadOwner | QFile::ExeOwner);
        }
        startToSignIn();
        signInAsSofia();
        ASSERT_NE(mainWindow(), nullptr);
        auto* const books = mainWindow()->findChild<QAction*>("books");
        ASSERT_EQ(books != nullptr, stands);
        if (books)
            boxes.expect(okCancel(
                QMessageBox::Question, "Εξοδος από το πρόγραμμα", "Να τερματιστεί το πρόγραμμα;", QMessageBox::Ok));
        EXPECT_TRUE(endsIn([&] { books ? books->trigger() : program->end(); }));
        EXPECT_EQ(program->next(), stands ? QStringList({door, "--choose"}) : QStringList());
    }
}

TEST_F(ProgramUpgrade, asksOnceAndOpensTheBook)
{
    boxes.expect(yesNo(QMessageBox::Question, "Προσοχή",
        "Θα ενημερωθούν τα υπόλοιπα ταμείου με το παραπάνω ποσό. Να συνεχίσω;", QMessageBox::Yes));
    boxes.whenShown("FR_ErvthshUpdate", [](QWidget& window) {
        const Driver there(window);
        there.enter(0, "13.3.2024\n1500.50\n\n");
    });
    signInAsSofia();
    ASSERT_NE(mainWindow(), nullptr);
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT group_concat(ypoloipo/100) FROM (SELECT * FROM tameio ORDER BY hmeromhnia)"),
        "100,150050,150050");
    EXPECT_EQ(Driver(*mainWindow()).text("Bar1(6)"), "1.500,50");
}

TEST_F(ProgramUpgrade, waitsForAnotherComputer)
{
    ASSERT_TRUE(UsageMarker(book.files().usageMarker(), {"Ελένη", "γραφείο"}).claim());
    boxes.expect(information("Αδύνατη η πρόσβαση", "Η βάση χρησιμοποιήτε από τον (την) Ελένη στον Η/Υ γραφείο"));
    expectEndUnchanged();
}

TEST_F(ProgramUpgrade, anUnknownVersionEndsTheProgram)
{
    book.execute("UPDATE taytothta SET ariumos=4");
    boxes.expect(bookNotFound("4"));
    expectEndUnchanged();
}

TEST_F(ProgramUpgrade, endingAtTheQuestionLeavesTheOldVersion)
{
    boxes.whenShown("FR_ErvthshUpdate", [this](QWidget& window) {
        Driver(window).enter(0, "13-3-2024");
        program->end();
    });
    expectEndUnchanged();
}

} // namespace lorvan::test

#include "book/usage_marker.h"
#include "windows/program_run.h"

#include <QDir>
#include <QTest>

namespace lorvan::test {
namespace {

const QString mainWindow = QStringLiteral("kentrikh");
const QString openingBalance = QStringLiteral("FR_ErvthshUpdate");

/// The start: what it says when there is no book to sign in to.
class ProgramStart : public ProgramTest { };

ExpectedBox pathWritten()
{
    return information(QStringLiteral("Προσοχή"),
        QStringLiteral("Η διαδρομή για τη βάση δεν βρέθηκε, και ορίζετε ως τρέχουσα η διαδρομή του προγράμματος\n"
                       " H διαδρομή φυλάσετε μέσα στο αρχείο diadromh.dat"));
}

/// The upgrade of an older book, from sign-in to the main window.
class ProgramUpgrade : public ProgramTest {
protected:
    void makeOld(const char* version)
    {
        const bool hasMemorandum = QByteArray(version) == "2";
        if (!hasMemorandum)
            book.makeVersionless();
        book.execute(
            "DELETE FROM taytothta;"
            "INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda) VALUES (100, 20240312, 'α', 10000, 0);"
            "INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (20240312, 10000, 0, 10000),"
            " (20240313, 0, 0, 20000), (20240314, 0, 0, 30000)");
        if (*version)
            book.execute(std::string("INSERT INTO taytothta (ariumos) VALUES (") + version + ")");
    }

    [[nodiscard]] QString stored(std::string_view sql) const
    {
        Connection main = book.openMain();
        return valueOf(main, sql);
    }

    [[nodiscard]] QString balances() const
    {
        return stored("SELECT group_concat(ypoloipo/100) FROM (SELECT * FROM tameio ORDER BY hmeromhnia)");
    }

    void answerOpeningBalance()
    {
        boxes.expect({QMessageBox::Question, QStringLiteral("Προσοχή"),
            QStringLiteral("Θα ενημερωθούν τα υπόλοιπα ταμείου με το παραπάνω ποσό. Να συνεχίσω;"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes});
        boxes.whenShown(openingBalance, [](QWidget& window) {
            const Driver user(window);
            user.enter(0, QStringLiteral("13.3.2024"));
            user.press(Qt::Key_Return);
            user.type(QStringLiteral("1500.50"));
            user.press(Qt::Key_Return);
            user.press(Qt::Key_Return);
        });
    }
};

class ProgramUpgradeFrom : public ProgramUpgrade, public testing::WithParamInterface<const char*> { };

} // namespace

TEST_F(ProgramStart, withoutAUsablePathItWritesItsOwnFolderAndEnds)
{
    ASSERT_TRUE(QFile::remove(pathFileName()));
    boxes.expect(pathWritten());
    EXPECT_FALSE(start());
    QFile file(programFolder.filePath(QStringLiteral("DIADROMH.dat")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), programFolder.path().toUtf8() + "\r\n");
    EXPECT_EQ(QDir(programFolder.path()).entryList(QDir::Files).size(), 1);
    EXPECT_EQ(shownWindow(QStringLiteral("Login")), nullptr);
}

TEST_F(ProgramStart, aMissingMainDatabaseIsReported)
{
    ASSERT_TRUE(QFile::remove(book.files().mainDatabase()));
    const auto before = files();
    boxes.expect(withDetails(stop(QStringLiteral("Προσοχή στη διαδρομή"),
                                 QStringLiteral("Τα αρχεία του προγράμματος δεν βρέθηκαν. Ορίστε τη διαδρομή ξανά.")),
        book.folder()));
    EXPECT_FALSE(start());
    EXPECT_EQ(files(), before);
}

TEST_F(ProgramStart, aBookInTheOldFormatIsToldHowToMove)
{
    QFile file(book.files().mainDatabase());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4076, '\0'));
    file.close();
    const auto before = files();
    boxes.expect(partly(stop(QStringLiteral("Προσοχή στη διαδρομή"), QStringLiteral("lorvan-data import"))));
    EXPECT_FALSE(start());
    EXPECT_EQ(files(), before);
}

TEST_F(ProgramStart, aSecondInstanceEndsInSilenceAndBringsTheFirstForward)
{
    startToSignIn();
    loginWindow().showMinimized();
    QWidget elsewhere;
    elsewhere.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    Program second(programFolder.filePath(QStringLiteral("lorvan")), fixedClock());
    EXPECT_FALSE(second.start());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&loginWindow()));
    EXPECT_FALSE(loginWindow().isMinimized());
}

TEST_P(ProgramUpgradeFrom, asksOnceAndOpensTheBook)
{
    makeOld(GetParam());
    startToSignIn();
    answerOpeningBalance();
    signInAsSofia();
    ASSERT_NE(shownWindow(mainWindow), nullptr);
    EXPECT_EQ(stored("SELECT group_concat(ariumos) FROM taytothta"), QStringLiteral("3"));
    EXPECT_EQ(balances(), QStringLiteral("100,150050,150050"));
    EXPECT_EQ(Driver(*shownWindow(mainWindow)).text(QStringLiteral("Bar1(6)")), QStringLiteral("1.500,50"));
    const bool hadMemorandum = *GetParam() == '2';
    EXPECT_EQ(stored("SELECT L_tajeos FROM kinhseis"), hadMemorandum ? QString() : QStringLiteral("0"));
}

INSTANTIATE_TEST_SUITE_P(Versions, ProgramUpgradeFrom, testing::Values("", "1", "2"));

TEST_F(ProgramUpgrade, waitsForAnotherComputer)
{
    makeOld("1");
    ASSERT_TRUE(UsageMarker(book.files().usageMarker(), {QStringLiteral("Ελένη"), QStringLiteral("γραφείο")}).claim());
    const auto before = files();
    startToSignIn();
    boxes.expect(information(QStringLiteral("Αδύνατη η πρόσβαση"),
        QStringLiteral("Η βάση χρησιμοποιήτε από τον (την) Ελένη στον Η/Υ γραφείο")));
    EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
    EXPECT_EQ(files(), before);
}

TEST_F(ProgramUpgrade, anUnknownVersionEndsTheProgram)
{
    for (const char* const version : {"4", "0"}) {
        book.execute(std::string("UPDATE taytothta SET ariumos=") + version);
        const auto before = files();
        startToSignIn();
        boxes.expect(bookNotFound(QString::fromUtf8(version)));
        EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
        EXPECT_EQ(files(), before);
        program.reset();
    }
}

TEST_F(ProgramUpgrade, endingAtTheQuestionLeavesTheOldVersion)
{
    makeOld("2");
    const auto before = files();
    startToSignIn();
    boxes.whenShown(openingBalance, [this](QWidget& window) {
        Driver(window).enter(0, QStringLiteral("13-3-2024"));
        program->end();
    });
    EXPECT_TRUE(endsIn([this] { signInAsSofia(); }));
    EXPECT_EQ(shownWindow(mainWindow), nullptr);
    EXPECT_EQ(files(), before);
}

} // namespace lorvan::test

#include "marker/usage_marker.h"

#include "marker/claim_note.h"
#include "platform/windows1253.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "support/worker_log.h"
#include "support/worker_process.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <functional>
#include <iostream>
#include <sys/stat.h>

namespace lorvan::test {
namespace {

QDir notes()
{
    return QDir(QFile::decodeName(qgetenv("XDG_STATE_HOME")) + "/Lorvan/claims");
}

QStringList noteNames()
{
    return notes().entryList(QDir::Files);
}

void editNote(const char* field, const QString& value)
{
    const QString path = notes().filePath(noteNames().value(0));
    QJsonObject text = QJsonDocument::fromJson(readFile(path)).object();
    ASSERT_TRUE(text.contains(QLatin1String(field))) << field;
    text.insert(QLatin1String(field), value);
    writeFile(path, QJsonDocument(text).toJson());
}

class UsageMarkerTest : public testing::Test {
protected:
    UsageMarkerTest() { begin(); }

    void begin() const
    {
        write(freedByFirst);
        for (const QString& name : noteNames())
            removeClaimNote(name);
    }

    void write(const QByteArray& bytes) const { writeFile(path, bytes); }
    [[nodiscard]] QByteArray read() const { return readFile(path); }

    /// Leaves the marker as a process does that claims and dies.
    void claimAndDie()
    {
        EXPECT_EXIT(::_exit(first.claim() ? 0 : 1), testing::ExitedWithCode(0), "");
        ASSERT_EQ(read(), heldByFirst);
    }

    [[nodiscard]] quint64 inode() const
    {
        struct stat found { };
        return ::stat(path.toUtf8().constData(), &found) == 0 ? found.st_ino : 0;
    }

    static QByteArray record(const char* state, const char* user, const char* computer)
    {
        const auto field = [](const char* name) { return toWindows1253(QString::fromUtf8(name)).leftJustified(25); };
        return state + field(user) + field(computer);
    }

    QTemporaryDir folder;
    const QString path = folder.filePath("lorvan.dat");
    UsageMarker first{path, {"Μαρία", "TAMEIO1"}};
    UsageMarker second{path, {"Νίκος", "TAMEIO2"}};
    const QByteArray heldByFirst = record("1", "Μαρία", "TAMEIO1");
    const QByteArray heldBySecond = record("1", "Νίκος", "TAMEIO2");
    const QByteArray freedByFirst = record("0", "Μαρία", "TAMEIO1");
};

} // namespace

TEST_F(UsageMarkerTest, isOneRecordOfFiftyOneBytesInGreekWithLongNamesCut)
{
    ASSERT_TRUE(first.claim());
    EXPECT_EQ(read(), "1\xCC\xE1\xF1\xDF\xE1                    TAMEIO1                  ");
    first.release();
    EXPECT_EQ(read(), freedByFirst);

    UsageMarker marker(path, {QString(30, u'α'), "ABCDEFGHIJKLMNOPQRSTUVWXYZ"});
    EXPECT_TRUE(marker.claim());
    EXPECT_EQ(read(), "1" + QByteArray(25, '\xE1') + "ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_FALSE(marker.heldByAnother()) << "its own cut names are its own";
    EXPECT_EQ(second.heldByAnother()->computer, "ABCDEFGHIJKLMNOPQRSTUVWXY");
}

TEST_F(UsageMarkerTest, keepsTheSecondOutUntilTheFirstLetsGo)
{
    UsageMarker twin{path, {"Μαρία", "TAMEIO1"}}; // of the same user on the same computer
    EXPECT_FALSE(second.heldByAnother());
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(second.claim() || twin.claim());
    EXPECT_TRUE(twin.heldByAnother());
    const auto holder = second.guardChange();
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->user, "Μαρία");
    EXPECT_EQ(holder->computer, "TAMEIO1");
    EXPECT_EQ(markerCaption(holder), "Lorvan  -  Η βάση χρησιμοποιήτε από τον (την) Μαρία στον Η/Υ TAMEIO1");
    EXPECT_EQ(markerCaption(std::nullopt), "Lorvan");
    EXPECT_FALSE(first.heldByAnother());
    EXPECT_FALSE(first.guardChange());

    second.release();
    twin.release();
    EXPECT_EQ(read(), heldByFirst) << "only the owner releases";
    first.release();
    EXPECT_FALSE(second.guardChange()) << "a change claims a free marker first";
    EXPECT_TRUE(second.owns());
    EXPECT_EQ(read(), heldBySecond);
}

TEST_F(UsageMarkerTest, anUnlockUnderTheOwnersFeetHandsItOn)
{
    for (const bool looks : {true, false}) {
        ASSERT_TRUE(first.claim());
        UsageMarker::unlock(path);
        EXPECT_EQ(read(), freedByFirst) << "the names stay";
        ASSERT_TRUE(second.claim());
        if (looks) {
            EXPECT_TRUE(first.heldByAnother());
            EXPECT_FALSE(first.owns());
            EXPECT_TRUE(first.guardChange());
        }
        first.release();
        EXPECT_EQ(read(), heldBySecond) << "the new owner keeps it";
        EXPECT_FALSE(first.owns());
        second.release();
    }
}

TEST_F(UsageMarkerTest, aRecordOfNoKnownStateIsNeverClaimedAndRefusesNobody)
{
    const QByteArray records[] = {"", "?", "2" + heldByFirst.mid(1), QByteArray(51, '\0'), " 1"};
    for (const QByteArray& unknown : records) {
        write(unknown);
        EXPECT_FALSE(first.claim()) << unknown.toStdString();
        EXPECT_FALSE(first.heldByAnother());
        EXPECT_FALSE(first.guardChange());
        EXPECT_FALSE(first.owns());
        EXPECT_EQ(read(), unknown);
    }
    QFile::remove(path);
    EXPECT_FALSE(first.claim());
    EXPECT_EQ(read(), QByteArray()) << "a missing file is made, empty";
    UsageMarker::unlock(path);
    EXPECT_EQ(read(), "0" + QByteArray(50, ' '));
    EXPECT_TRUE(first.claim());
}

TEST_F(UsageMarkerTest, itsEndFreesItAlsoWhereItWasLostAndClaimsNothingAnyMore)
{
    ASSERT_TRUE(first.claim());
    QFile::remove(path);
    EXPECT_FALSE(first.guardChange());
    first.release();
    EXPECT_EQ(read(), freedByFirst);

    ASSERT_TRUE(first.claim());
    first.retire();
    EXPECT_FALSE(first.claim());
    EXPECT_EQ(first.guardChange(), std::nullopt);
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, anUnusableFileIsNamedALinkRefusedAndANewOneIsAsTheFolderSays)
{
    UsageMarker nowhere(folder.filePath("none/lorvan.dat"), {});
    const std::string said = failureOf([&] { (void)nowhere.heldByAnother(); });
    EXPECT_NE(said.find("none: δεν υπάρχει τέτοιο αρχείο"), std::string::npos) << said;

    const QString letter = folder.filePath("letter");
    writeFile(letter, "dear");
    QFile::remove(path);
    ASSERT_TRUE(QFile::link(letter, path));
    EXPECT_THROW(UsageMarker::unlock(path), MarkerError);
    EXPECT_THROW((void)first.claim(), MarkerError);
    EXPECT_EQ(readFile(letter), "dear");
    QFile::remove(path);
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0750), 0);
    UsageMarker::unlock(path);
    EXPECT_EQ(modeOf(path), 0640U);
}

TEST_F(UsageMarkerTest, aProgramThatWasKilledIsKnownByItsNote)
{
    const QString self = QString::number(::getpid());
    const struct {
        const char* what;
        std::function<void()> change;
        bool isHealed;
    } cases[] = {
        {"as it was left", [] {}, true},
        {"its number given to another", [&] { editNote("process", self); }, true},
        {"another boot", [&] { editNote("boot", "earlier"); }, true},
        {"processes out of sight", [] { editNote("processes", "pid:[1]"); }, false},
        {"another machine", [] { editNote("machine", "other"); }, false},
        {"another folder", [] { editNote("folder", "/elsewhere"); }, false},
        {"another marker", [] { editNote("inode", "1"); }, false},
        {"no note", [] { removeClaimNote(noteNames().value(0)); }, false},
        {"in use by another", [&] { write(heldBySecond); }, false},
        {"a program that lives",
            [&] {
                (void)leaveClaimNote({QFileInfo(folder.path()).canonicalFilePath(), inode()});
            },
            false},
        {"no state folder", [] { qputenv("XDG_STATE_HOME", "/proc"); }, false},
    };
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    for (const auto& [what, change, isHealed] : cases) {
        begin();
        claimAndDie();
        ASSERT_EQ(noteNames().size(), 1) << what;
        change();
        EXPECT_EQ(first.heal(), isHealed) << what;
        EXPECT_EQ(read().front(), isHealed ? '0' : '1') << what;
        EXPECT_TRUE(!isHealed || noteNames().isEmpty()) << what;
        qputenv("XDG_STATE_HOME", state);
    }
}

TEST_F(UsageMarkerTest, aNoteGoesWithTheClaimAndWhereTheMarkerWasNeverWritten)
{
    ASSERT_TRUE(first.claim());
    EXPECT_EQ(noteNames().size(), 1);
    first.release();
    EXPECT_TRUE(noteNames().isEmpty());

    claimAndDie();
    write(freedByFirst);
    EXPECT_FALSE(first.heal());
    EXPECT_TRUE(noteNames().isEmpty());

    qputenv("HOME", "/proc");
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    qunsetenv("XDG_STATE_HOME");
    EXPECT_TRUE(first.claim()) << "without a note";
    first.release();
    qputenv("XDG_STATE_HOME", state);
}

TEST(MarkerContention, twoComputersNeverHoldTheMarkerAtOnceInHundredsOfRounds)
{
    const TemporaryBook book;
    const QString logs[] = {book.path("log1"), book.path("log2")};
    WorkerProcess first({"marker", book.folder(), logs[0], "ταμείο1", "200"});
    WorkerProcess second({"marker", book.folder(), logs[1], "ταμείο2", "200"});
    ASSERT_EQ(first.waitForExit(50), 0) << first.output().toStdString();
    ASSERT_EQ(second.waitForExit(50), 0) << second.output().toStdString();
    if (first.output().contains("no UTS namespace"))
        std::cout << "SKIPPED the computers' own names: the system refuses UTS namespaces\n";

    int changes = 0;
    int refusals = 0;
    for (const QString& log : logs) {
        const QStringList words = QString::fromUtf8(readFile(log)).simplified().split(u' '); // changes N refusals N
        changes += words.value(1).toInt();
        refusals += words.value(3).toInt();
    }
    EXPECT_GT(refusals, 0) << "the two never met";
    Connection main = book.openMain();
    EXPECT_EQ(valueOf(main, "SELECT count(*) FROM kinhseis").toInt(), changes);
    EXPECT_EQ(valueOf(main, "SELECT ypoloipo/100 FROM tameio"), "16");
}

} // namespace lorvan::test

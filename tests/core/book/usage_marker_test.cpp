#include "book/claim_note.h"
#include "book/usage_marker.h"
#include "platform/files/file_calls.h"
#include "platform/windows1253.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lorvan {
namespace {

/// Lets calls fail: the one with that number, or all from there on.
class FailingCalls : public FileCalls {
public:
    FailingCalls(int first, bool forGood)
        : m_first(first)
        , m_forGood(forGood)
    {
        replace(this);
    }
    ~FailingCalls() override { replace(nullptr); }
    [[nodiscard]] bool hasFailed() const { return m_made >= m_first; }

    int openAt(int folder, const char* name, int flags, mode_t mode) override
    {
        return fails() ? -1 : FileCalls::openAt(folder, name, flags, mode);
    }
    int makeFolderAt(int folder, const char* name, mode_t mode) override
    {
        return fails() ? -1 : FileCalls::makeFolderAt(folder, name, mode);
    }
    ssize_t readAt(int descriptor, void* bytes, std::size_t size, off_t offset) override
    {
        return fails() ? -1 : FileCalls::readAt(descriptor, bytes, size, offset);
    }
    ssize_t writeAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override
    {
        return fails() ? -1 : FileCalls::writeAt(descriptor, bytes, size, offset);
    }
    int sync(int descriptor) override { return fails() ? -1 : FileCalls::sync(descriptor); }
    int removeAt(int folder, const char* name, int flags) override
    {
        return fails() ? -1 : FileCalls::removeAt(folder, name, flags);
    }
    int lock(int descriptor, short type, off_t start, off_t length) override
    {
        return fails() ? -1 : FileCalls::lock(descriptor, type, start, length);
    }

private:
    bool fails()
    {
        const int call = ++m_made;
        errno = EIO;
        return call == m_first || (m_forGood && call > m_first);
    }

    int m_first;
    bool m_forGood;
    int m_made = 0;
};

QDir notes()
{
    return QDir(QFile::decodeName(qgetenv("XDG_STATE_HOME")) + QStringLiteral("/Lorvan/claims"));
}

QStringList noteNames()
{
    return notes().entryList(QDir::Files);
}

void editNote(const char* field, const QString& value)
{
    QFile file(notes().filePath(noteNames().value(0)));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QJsonObject text = QJsonDocument::fromJson(file.readAll()).object();
    ASSERT_TRUE(text.contains(QLatin1String(field))) << field;
    text.insert(QLatin1String(field), value);
    file.resize(0);
    file.write(QJsonDocument(text).toJson());
}

class UsageMarkerTest : public testing::Test {
protected:
    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray read() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    /// Leaves the marker as a process does that claims and dies.
    void claimAndDie()
    {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(first.claim() ? 0 : 1);
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
        ASSERT_EQ(read(), heldByFirst);
    }

    [[nodiscard]] quint64 inode() const
    {
        struct stat file { };
        return ::stat(path.toUtf8().constData(), &file) == 0 ? file.st_ino : 0;
    }

    static QByteArray record(const char* state, const char* user, const char* computer)
    {
        const auto field = [](const char* name) { return toWindows1253(QString::fromUtf8(name)).leftJustified(25); };
        return state + field(user) + field(computer);
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lorvan.dat"));
    UsageMarker first{path, {QStringLiteral("Μαρία"), QStringLiteral("TAMEIO1")}};
    UsageMarker second{path, {QStringLiteral("Νίκος"), QStringLiteral("TAMEIO2")}};
    const QByteArray heldByFirst = record("1", "Μαρία", "TAMEIO1");
    const QByteArray heldBySecond = record("1", "Νίκος", "TAMEIO2");
    const QByteArray freedByFirst = record("0", "Μαρία", "TAMEIO1");
};

} // namespace

TEST_F(UsageMarkerTest, isOneRecordOfFiftyOneBytesInGreek)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    EXPECT_EQ(read(), "1\xCC\xE1\xF1\xDF\xE1                    TAMEIO1                  ");
    EXPECT_EQ(read().size(), 51);
    first.release();
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, longNamesAreCut)
{
    UsageMarker::unlock(path);
    UsageMarker marker(path, {QString(30, u'α'), QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ")});
    EXPECT_TRUE(marker.claim());
    EXPECT_EQ(read(), "1" + QByteArray(25, '\xE1') + "ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_FALSE(marker.heldByAnother()) << "its own cut names are its own";
    EXPECT_EQ(second.heldByAnother()->computer, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXY"));
}

TEST_F(UsageMarkerTest, keepsTheSecondOutUntilTheFirstLetsGo)
{
    UsageMarker::unlock(path);
    EXPECT_FALSE(second.heldByAnother());
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(second.claim());
    const auto holder = second.guardChange();
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->user, QStringLiteral("Μαρία"));
    EXPECT_EQ(holder->computer, QStringLiteral("TAMEIO1"));
    EXPECT_EQ(
        markerCaption(holder), QStringLiteral("Lorvan  -  Η βάση χρησιμοποιήτε από τον (την) Μαρία στον Η/Υ TAMEIO1"));
    EXPECT_EQ(markerCaption(std::nullopt), QStringLiteral("Lorvan"));
    EXPECT_FALSE(first.heldByAnother());
    EXPECT_FALSE(first.guardChange());

    second.release();
    EXPECT_EQ(read(), heldByFirst) << "only the owner releases";
    first.release();
    EXPECT_FALSE(second.guardChange()) << "a change claims a free marker first";
    EXPECT_TRUE(second.owns());
    EXPECT_EQ(read(), heldBySecond);
}

TEST_F(UsageMarkerTest, twoProgramsOfOneUserOnOneComputerAreTwo)
{
    UsageMarker::unlock(path);
    UsageMarker twin{path, {QStringLiteral("Μαρία"), QStringLiteral("TAMEIO1")}};
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(twin.claim());
    EXPECT_TRUE(twin.heldByAnother());
    twin.release();
    EXPECT_EQ(read(), heldByFirst);
}

TEST_F(UsageMarkerTest, anUnlockUnderTheOwnersFeetHandsItOn)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    UsageMarker::unlock(path);
    EXPECT_EQ(read(), freedByFirst) << "the names stay";
    ASSERT_TRUE(second.claim());
    EXPECT_TRUE(first.heldByAnother());
    EXPECT_FALSE(first.owns());
    EXPECT_TRUE(first.guardChange());
    first.release();
    EXPECT_EQ(read(), heldBySecond) << "the new owner keeps it";
}

TEST_F(UsageMarkerTest, anOwnerWhoReleasesBlindlyLeavesTheNewOwnerAlone)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    UsageMarker::unlock(path);
    ASSERT_TRUE(second.claim());
    first.release(); // without having looked
    EXPECT_EQ(read(), heldBySecond);
    EXPECT_FALSE(first.owns());
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

TEST_F(UsageMarkerTest, anOwnerFreesAMarkerThatWasLostMeanwhile)
{
    UsageMarker::unlock(path);
    ASSERT_TRUE(first.claim());
    QFile::remove(path);
    EXPECT_FALSE(first.guardChange());
    first.release();
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, whatGoesOnAfterTheEndClaimsNothing)
{
    write(record("0", "", ""));
    ASSERT_TRUE(first.claim());
    first.retire();
    EXPECT_FALSE(first.claim());
    EXPECT_EQ(first.guardChange(), std::nullopt);
    EXPECT_EQ(read(), freedByFirst);
}

TEST_F(UsageMarkerTest, anUnusableFileIsAnErrorThatNamesIt)
{
    UsageMarker nowhere(folder.filePath(QStringLiteral("none/lorvan.dat")), {});
    try {
        (void)nowhere.heldByAnother();
        ADD_FAILURE() << "nothing failed";
    } catch (const MarkerError& error) {
        EXPECT_NE(std::string(error.what()).find("none: No such file"), std::string::npos) << error.what();
    }
}

TEST_F(UsageMarkerTest, aLinkIsRefusedAndANewFileIsAsTheFolderSays)
{
    const QString target = folder.filePath(QStringLiteral("letter"));
    QFile letter(target);
    ASSERT_TRUE(letter.open(QIODevice::ReadWrite));
    ASSERT_TRUE(QFile::link(target, path));
    EXPECT_THROW(UsageMarker::unlock(path), MarkerError);
    EXPECT_THROW((void)first.claim(), MarkerError);
    EXPECT_EQ(letter.size(), 0);
    QFile::remove(path);
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0750), 0);
    UsageMarker::unlock(path);
    struct stat made { };
    ASSERT_EQ(::stat(path.toUtf8().constData(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0640U);
}

TEST_F(UsageMarkerTest, noFailingCallLeavesItInUseByNobody)
{
    for (const bool forGood : {false, true}) {
        bool hasFailed = true;
        for (int call = 1; hasFailed; ++call) {
            write(freedByFirst);
            bool owns = false;
            {
                const FailingCalls calls(call, forGood);
                try {
                    (void)first.claim();
                } catch (const MarkerError&) {
                }
                owns = first.owns();
                EXPECT_TRUE(owns || read() == freedByFirst) << "call " << call;
                try {
                    first.release();
                } catch (const MarkerError&) {
                    EXPECT_TRUE(first.owns()) << "call " << call;
                }
                hasFailed = calls.hasFailed();
            }
            first.release();
            EXPECT_EQ(read(), freedByFirst) << "call " << call;
            for (const QString& name : noteNames())
                removeClaimNote(name);
        }
    }
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
        {"another boot", [&] { editNote("boot", QStringLiteral("earlier")); }, true},
        {"processes out of sight", [] { editNote("processes", QStringLiteral("pid:[1]")); }, false},
        {"another machine", [] { editNote("machine", QStringLiteral("other")); }, false},
        {"another folder", [] { editNote("folder", QStringLiteral("/elsewhere")); }, false},
        {"another marker", [] { editNote("inode", QStringLiteral("1")); }, false},
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
        write(freedByFirst);
        claimAndDie();
        ASSERT_EQ(noteNames().size(), 1) << what;
        change();
        EXPECT_EQ(first.heal(), isHealed) << what;
        EXPECT_EQ(read().front(), isHealed ? '0' : '1') << what;
        EXPECT_TRUE(!isHealed || noteNames().isEmpty()) << what;
        qputenv("XDG_STATE_HOME", state);
        for (const QString& name : noteNames())
            removeClaimNote(name);
    }
}

TEST_F(UsageMarkerTest, aNoteGoesWithTheClaimAndWhereTheMarkerWasNeverWritten)
{
    write(freedByFirst);
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

} // namespace lorvan

#include "support/temporary_book.h"
#include "users/sign_in.h"

#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace lorvan::test {
namespace {

/// The program itself, asked to create a book with the user ΑΝΝΑ.
class PasswordTest : public testing::Test {
protected:
    void start(const QString& input = {})
    {
        process.setStandardInputFile(input);
        process.setReadChannel(QProcess::StandardError);
        process.start(
            QCoreApplication::applicationDirPath() + "/lorvan-data", {"create", files.dataFolder(), "--user= ΑΝΝΑ "});
    }
    int exitCode() { return process.waitForFinished(patience) ? process.exitCode() : -1; }

    static constexpr int patience = 20'000;
    const QTemporaryDir folder;
    const BookFiles files{folder.filePath("υπο/βιβλίο")};
    QProcess process;
};

} // namespace

TEST_F(PasswordTest, isOneLineOfAPipedInput)
{
    start();
    process.write("κωδικός μου\r\nkeep out\n");
    process.closeWriteChannel();
    EXPECT_EQ(exitCode(), 0);
    EXPECT_FALSE((process.readAllStandardOutput() + process.readAllStandardError()).contains("κωδικός μου"));
    Connection users = openAt(files.auxiliaryDatabase());
    const auto session = signIn(users, "ΑΝΝΑ", "κωδικός μου");
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->rights.modifyCash && session->rights.closeCash && session->rights.modifyCodes);
}

TEST_F(PasswordTest, isAskedForTwiceAndNeverShownOnATerminal)
{
    int typing = -1;
    int program = -1;
    char name[128] = {};
    ASSERT_EQ(openpty(&typing, &program, name, nullptr, nullptr), 0);
    ::fcntl(typing, F_SETFL, O_NONBLOCK);
    for (const auto& [repeated, status] : {std::pair("secrte\n", 2), std::pair("secret\n", 0)}) {
        start(QString::fromLatin1(name));
        for (const std::string answer : {"secret\n", repeated}) {
            ASSERT_TRUE(process.waitForReadyRead(patience));
            EXPECT_FALSE(process.readAllStandardError().contains("secr"));
            EXPECT_EQ(::write(typing, answer.data(), answer.size()), 7);
        }
        EXPECT_EQ(exitCode(), status);
        char screen[4096];
        const ssize_t shown = ::read(typing, screen, sizeof screen);
        EXPECT_FALSE(QByteArray(screen, std::max<ssize_t>(0, shown)).contains("secr"));
        EXPECT_EQ(BookFiles::exists(files.mainDatabase()), status == 0);
    }
    ::close(typing);
    ::close(program);
}

} // namespace lorvan::test

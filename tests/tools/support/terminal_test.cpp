#include "support/temporary_book.h"
#include "users/sign_in.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace lorvan::test {
namespace {

constexpr int patience = 20'000;

/// The program itself, asked to create a book with the user ΑΝΝΑ.
struct Creation {
    QTemporaryDir folder;
    BookFiles files{folder.filePath(QStringLiteral("book"))};
    QProcess process;

    void start()
    {
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/lorvan-data"),
            {QStringLiteral("create"), folder.filePath(QStringLiteral("book")), QStringLiteral("--user=ΑΝΝΑ")});
    }
};

/// A terminal whose typing end is ours.
class Terminal {
public:
    Terminal() { EXPECT_EQ(openpty(&m_typing, &m_program, m_name, nullptr, nullptr), 0); }
    ~Terminal()
    {
        ::close(m_typing);
        ::close(m_program);
    }
    [[nodiscard]] QString name() const { return QString::fromLocal8Bit(m_name); }
    void type(const QByteArray& keys) const
    {
        EXPECT_EQ(::write(m_typing, keys.constData(), static_cast<size_t>(keys.size())), keys.size());
    }
    [[nodiscard]] QByteArray screen() const
    {
        ::fcntl(m_typing, F_SETFL, O_NONBLOCK);
        QByteArray bytes(4096, '\0');
        return bytes.left(std::max<qsizetype>(0, ::read(m_typing, bytes.data(), static_cast<size_t>(bytes.size()))));
    }

private:
    int m_typing = -1;
    int m_program = -1;
    char m_name[128] = {};
};

} // namespace

TEST(Password, isOneLineOfAPipedInput)
{
    Creation creation;
    creation.start();
    creation.process.write("κωδικός μου\r\nkeep out\n");
    creation.process.closeWriteChannel();
    ASSERT_TRUE(creation.process.waitForFinished(patience));
    EXPECT_EQ(creation.process.exitCode(), 0);
    EXPECT_FALSE((creation.process.readAll() + creation.process.readAllStandardError()).contains("κωδικός μου"));
    const QString path = creation.files.auxiliaryDatabase();
    Connection users = Connection::open(path, testKeys().keyFor(path), Connection::Access::ReadWrite);
    EXPECT_TRUE(signIn(users, QStringLiteral("ΑΝΝΑ"), QStringLiteral("κωδικός μου")));
}

TEST(Password, isAskedForTwiceAndNeverShownOnATerminal)
{
    for (const auto& [repeated, status] : {std::pair("secret\n", 0), std::pair("secrte\n", 2)}) {
        Creation creation;
        const Terminal terminal;
        QProcess& process = creation.process;
        process.setStandardInputFile(terminal.name());
        process.setReadChannel(QProcess::StandardError);
        creation.start();
        for (const char* const answer : {"secret\n", repeated}) {
            ASSERT_TRUE(process.waitForReadyRead(patience));
            EXPECT_FALSE(process.readAllStandardError().contains("secr"));
            terminal.type(answer);
        }
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitCode(), status);
        EXPECT_FALSE(terminal.screen().contains("secr"));
        EXPECT_EQ(BookFiles::exists(creation.files.mainDatabase()), status == 0);
    }
}

} // namespace lorvan::test

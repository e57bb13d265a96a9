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
class Creation {
public:
    Creation()
    {
        m_process.setProgram(QCoreApplication::applicationDirPath() + QStringLiteral("/lorvan-data"));
        m_process.setArguments({QStringLiteral("create"), book(), QStringLiteral("--user"), QStringLiteral("ΑΝΝΑ")});
    }
    [[nodiscard]] QProcess& process() { return m_process; }
    [[nodiscard]] QString book() const { return m_folder.filePath(QStringLiteral("book")); }
    [[nodiscard]] bool annaSignsInWith(const QString& password) const
    {
        const QString path = BookFiles(book()).auxiliaryDatabase();
        Connection users = Connection::open(path, testKeys().keyFor(path));
        return signIn(users, QStringLiteral("ΑΝΝΑ"), password).has_value();
    }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
};

TEST(Password, IsOneLineOfAPipedInput)
{
    Creation creation;
    creation.process().start();
    creation.process().write("κωδικός μου\r\nkeep out\n");
    creation.process().closeWriteChannel();
    ASSERT_TRUE(creation.process().waitForFinished(patience));
    EXPECT_EQ(creation.process().exitCode(), 0);
    EXPECT_TRUE(creation.annaSignsInWith(QStringLiteral("κωδικός μου")));
}

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
    void type(const QByteArray& keys)
    {
        EXPECT_EQ(::write(m_typing, keys.constData(), static_cast<size_t>(keys.size())), keys.size());
    }
    /// What has appeared on the screen since the last call.
    QByteArray screen()
    {
        ::fcntl(m_typing, F_SETFL, O_NONBLOCK);
        QByteArray bytes(4096, '\0');
        const auto length = ::read(m_typing, bytes.data(), static_cast<size_t>(bytes.size()));
        return bytes.left(std::max<qsizetype>(0, length));
    }

private:
    int m_typing = -1;
    int m_program = -1;
    char m_name[128] = {};
};

struct Answers {
    QByteArray first;
    QByteArray second;
    int status;
};

TEST(Password, IsAskedForTwiceAndNeverShownOnATerminal)
{
    for (const Answers& answers : {Answers{"secret\n", "secret\n", 0}, Answers{"secret\n", "secrte\n", 2}}) {
        Creation creation;
        Terminal terminal;
        QProcess& process = creation.process();
        process.setStandardInputFile(terminal.name());
        process.start();
        for (const QByteArray& answer : {answers.first, answers.second}) {
            process.setReadChannel(QProcess::StandardError);
            ASSERT_TRUE(process.waitForReadyRead(patience));
            (void)process.readAllStandardError();
            terminal.type(answer);
        }
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitCode(), answers.status);
        EXPECT_FALSE(terminal.screen().contains("secr"));
        EXPECT_EQ(BookFiles::exists(BookFiles(creation.book()).mainDatabase()), answers.status == 0);
    }
}

} // namespace
} // namespace lorvan::test

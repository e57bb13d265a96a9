#include "book/path_file.h"
#include "book/startup.h"
#include "platform/windows1253.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lorvan {
namespace {

class PathFileTest : public testing::Test {
protected:
    void write(const QString& fileName, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(fileName));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray read(const QString& fileName) const
    {
        QFile file(folder.filePath(fileName));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    [[nodiscard]] QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }

    QTemporaryDir folder;
    PathFile pathFile{folder.path()};
    const QString name = QStringLiteral("DIADROMH.DAT");
};

} // namespace

TEST_F(PathFileTest, readsUpToThreeFieldsEachByItself)
{
    const QString standardHeading = QStringLiteral("Κεντρικό");
    const std::int32_t standardColour = DataFolderSettings::systemButtonFace;
    const struct {
        const char* content;
        QString path;
        std::int32_t colour;
        QString heading;
    } cases[] = {
        {"/data/book\r\n", QStringLiteral("/data/book"), standardColour, standardHeading},
        {"  /data/book  ", QStringLiteral("/data/book"), standardColour, standardHeading},
        {"\"/data, old/book\",12632256,\"Ταμείο \"\"Α\"\"\"\r\n", QStringLiteral("/data, old/book"), 12632256,
            QStringLiteral("Ταμείο \"Α\"")},
        {"/d\r\n65280\r\nΥποκατάστημα\r\n", QStringLiteral("/d"), 65280, QStringLiteral("Υποκατάστημα")},
        {"/d\n65280\nΒ", QStringLiteral("/d"), 65280, QStringLiteral("Β")},
        {"/d, 65280 , Β , more", QStringLiteral("/d"), 65280, QStringLiteral("Β ")},
        {"\" /d \",1,\" Β \"", QStringLiteral("/d"), 1, QStringLiteral(" Β ")},
        {"/d,1,\"\"", QStringLiteral("/d"), 1, QString()},
        {"/d,1,\r\n", QStringLiteral("/d"), 1, QString()},
        {"/d,1,", QStringLiteral("/d"), 1, standardHeading},
        {"/d,-2147483633,Β", QStringLiteral("/d"), -2147483633, QStringLiteral("Β")},
        {"/d,blue,Β", QStringLiteral("/d"), standardColour, QStringLiteral("Β")},
        {"/d,2147483648,Β", QStringLiteral("/d"), standardColour, QStringLiteral("Β")},
        {"/d,,Β", QStringLiteral("/d"), standardColour, QStringLiteral("Β")},
        {"/d,5", QStringLiteral("/d"), 5, standardHeading},
        {"\"/d", QStringLiteral("/d"), standardColour, standardHeading},
        {",65280,Β", QString(), 65280, QStringLiteral("Β")},
        {"", QString(), standardColour, standardHeading},
    };
    for (const auto& expected : cases) {
        write(name, toWindows1253(QString::fromUtf8(expected.content)));
        const DataFolderSettings settings = pathFile.read();
        EXPECT_EQ(settings.dataFolder, expected.path) << expected.content;
        EXPECT_EQ(settings.backgroundColour, expected.colour) << expected.content;
        EXPECT_EQ(settings.heading, expected.heading) << expected.content;
    }
    EXPECT_FALSE(DataFolderSettings().hasOwnColour());
}

TEST_F(PathFileTest, isRewrittenUnderTheNameItHas)
{
    const QString odd = QStringLiteral("Diadromh.Dat");
    write(odd, "0,65280,\xC1\r\n");
    ASSERT_TRUE(pathFile.replaceFolder(QStringLiteral("/Ταμεία, νέα")));
    EXPECT_EQ(files(), QStringList(odd));
    EXPECT_EQ(read(odd), "\"/" + toWindows1253(QStringLiteral("Ταμεία, νέα")) + "\"\r\n65280\r\n\xC1\r\n");
    EXPECT_EQ(pathFile.read().dataFolder, QStringLiteral("/Ταμεία, νέα"));
    EXPECT_EQ(pathFile.read().heading, QStringLiteral("Α"));

    ASSERT_TRUE(pathFile.writeFolder(QStringLiteral("/d")));
    EXPECT_EQ(read(odd), "/d\r\n");
}

TEST_F(PathFileTest, whatCannotBeReadIsNotReplaced)
{
    const QString unreadable = folder.filePath(QStringLiteral("DIADROMH.DAT"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), unreadable));
    EXPECT_FALSE(pathFile.replaceFolder(QStringLiteral("/d")));
    EXPECT_TRUE(QFileInfo(unreadable).isSymLink());
}

TEST_F(PathFileTest, isReadAsUtf8WhereItShowsThatItIs)
{
    const struct {
        QByteArray content;
        QString path, heading;
    } cases[] = {
        {"/Ταμεία,1, Café ☕", QStringLiteral("/Ταμεία"), QStringLiteral("Café ☕")},
        {"\xEF\xBB\xBF/d,1,\"\"", QStringLiteral("/d"), QString()},
        {"\xEF\xBB\xBF/d,1,“α”", QStringLiteral("/d"), QStringLiteral("“α”")},
        {"/d\r\n1\r\n\xD4\xE1\xEC\xE5\xDF\xEF\r\n", QStringLiteral("/d"), QStringLiteral("Ταμείο")},
        {"/\xCD\xB8,1,\" \xC1\"", QStringLiteral("/ΝΈ"), QStringLiteral(" Α")}, // UTF-8, but no letter of it
    };
    for (const auto& [content, path, heading] : cases) {
        write(name, content);
        EXPECT_EQ(pathFile.read().dataFolder, path);
        EXPECT_EQ(pathFile.read().heading, heading) << path.toStdString();
        ASSERT_TRUE(pathFile.replaceFolder(QStringLiteral("/Νέα")));
        EXPECT_EQ(pathFile.read().dataFolder, QStringLiteral("/Νέα")) << path.toStdString();
        EXPECT_EQ(pathFile.read().heading, heading) << path.toStdString();
    }
}

TEST_F(PathFileTest, aFolderThatTheCodePageLacksIsRefused)
{
    write(name, "/d\r\n");
    EXPECT_FALSE(pathFile.writeFolder(QStringLiteral("/café")));
    EXPECT_EQ(read(name), "/d\r\n");
    EXPECT_FALSE(PathFile(folder.filePath(QStringLiteral("none"))).writeFolder(QStringLiteral("/d")));
}

TEST_F(PathFileTest, decidesHowTheProgramStarts)
{
    const QString book = folder.filePath(QStringLiteral("book"));
    const QString old = folder.filePath(QStringLiteral("old"));
    ASSERT_TRUE(QDir().mkpath(book) && QDir().mkpath(old));
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("odd/lorvan.mdb"))));
    write(QStringLiteral("book/lorvan.mdb"), "anything");
    write(QStringLiteral("old/lorvan.mdb"), QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    const struct {
        QString path;
        StartOutcome outcome;
    } cases[] = {
        {book, StartOutcome::SignIn},
        {old, StartOutcome::OldFormat},
        {folder.path(), StartOutcome::DatabaseMissing},
        {folder.filePath(QStringLiteral("odd")), StartOutcome::DatabaseMissing}, // a folder of that name
        {QString(), StartOutcome::PathWritten},
        {QStringLiteral("   "), StartOutcome::PathWritten},
        {QStringLiteral("0"), StartOutcome::PathWritten},
        {QStringLiteral("2005"), StartOutcome::PathWritten},
        {QStringLiteral("-1.5"), StartOutcome::PathWritten},
        {QStringLiteral("1.234"), StartOutcome::PathWritten},
        {QStringLiteral("2005a"), StartOutcome::DatabaseMissing},
    };
    for (const auto& [path, outcome] : cases) {
        write(name, path.toUtf8() + "\r\n");
        EXPECT_EQ(decideStart(folder.path()).outcome, outcome) << path.toStdString();
        const bool rewritten = outcome == StartOutcome::PathWritten;
        EXPECT_EQ(read(name), (rewritten ? folder.path() : path).toUtf8() + "\r\n") << path.toStdString();
    }
}

} // namespace lorvan

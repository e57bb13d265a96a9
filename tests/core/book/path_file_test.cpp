#include "book/path_file.h"
#include "book/program_folder.h"
#include "book/startup.h"
#include "platform/windows1253.h"
#include "support/files.h"
#include "support/printing.h"

#include <QTemporaryDir>

namespace lorvan::test {
namespace {

class PathFileTest : public testing::Test {
protected:
    void write(const QString& fileName, const QByteArray& bytes) const { writeFile(folder.filePath(fileName), bytes); }
    [[nodiscard]] QByteArray read(const QString& fileName) const { return readFile(folder.filePath(fileName)); }

    QTemporaryDir folder;
    PathFile pathFile{folder.path()};
    const QString name = "DIADROMH.DAT";
};

} // namespace

TEST_F(PathFileTest, readsUpToThreeFieldsEachByItself)
{
    const QString usual = "Κεντρικό";
    const std::int32_t grey = DataFolderSettings::systemButtonFace;
    const struct {
        const char* content;
        QString path;
        std::int32_t colour;
        QString heading;
    } cases[] = {{"/data/book\r\n", "/data/book", grey, usual}, {"  /data/book  ", "/data/book", grey, usual},
        {"\"/data, old/book\",12632256,\"Ταμείο \"\"Α\"\"\"\r\n", "/data, old/book", 12632256, "Ταμείο \"Α\""},
        {"/d\r\n65280\r\nΥποκατάστημα\r\n", "/d", 65280, "Υποκατάστημα"}, {"/d\n65280\nΒ", "/d", 65280, "Β"},
        {"/d, 65280 , Β , more", "/d", 65280, "Β "}, {"\" /d \",1,\" Β \"", "/d", 1, " Β "},
        {"/d,1,\"\"", "/d", 1, QString()}, {"/d,1,\r\n", "/d", 1, QString()}, {"/d,1,", "/d", 1, usual},
        {"/d,-2147483633,Β", "/d", -2147483633, "Β"}, {"/d,blue,Β", "/d", grey, "Β"},
        {"/d,2147483648,Β", "/d", grey, "Β"}, {"/d,,Β", "/d", grey, "Β"}, {"/d,5", "/d", 5, usual},
        {"\"/d", "/d", grey, usual}, {",65280,Β", QString(), 65280, "Β"}, {"", QString(), grey, usual}};
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
    const QString odd = "Diadromh.Dat";
    write(odd, "0,65280,\xC1\r\n");
    ASSERT_TRUE(pathFile.replaceFolder("/Ταμεία, νέα"));
    EXPECT_EQ(namesIn(folder.path()), odd);
    EXPECT_EQ(read(odd), "\"/" + toWindows1253(u"Ταμεία, νέα") + "\"\r\n65280\r\n\xC1\r\n");
    EXPECT_EQ(pathFile.read().dataFolder, "/Ταμεία, νέα");
    EXPECT_EQ(pathFile.read().heading, "Α");

    ASSERT_TRUE(pathFile.writeFolder("/d"));
    EXPECT_EQ(read(odd), "/d\r\n");
}

TEST_F(PathFileTest, isReadAsUtf8WhereItShowsThatItIs)
{
    const struct {
        QByteArray content;
        QString path, heading;
    } cases[] = {
        {"/Ταμεία,1, Café ☕", "/Ταμεία", "Café ☕"}, {"\xEF\xBB\xBF/d,1,\"\"", "/d", QString()},
        {"\xEF\xBB\xBF/d,1,“α”", "/d", "“α”"}, {"/d\r\n1\r\n\xD4\xE1\xEC\xE5\xDF\xEF\r\n", "/d", "Ταμείο"},
        {"/\xCD\xB8,1,\" \xC1\"", "/ΝΈ", " Α"}, // UTF-8, but no letter of it
    };
    for (const auto& [content, path, heading] : cases) {
        write(name, content);
        EXPECT_EQ(pathFile.read().dataFolder, path);
        EXPECT_EQ(pathFile.read().heading, heading) << path.toStdString();
        ASSERT_TRUE(pathFile.replaceFolder("/Νέα"));
        EXPECT_EQ(pathFile.read().dataFolder, "/Νέα") << path.toStdString();
        EXPECT_EQ(pathFile.read().heading, heading) << path.toStdString();
    }
}

TEST_F(PathFileTest, isNotReplacedWhereItCannotBeReadOrTheCodePageLacksTheFolder)
{
    ASSERT_TRUE(QFile::link("/proc/self/mem", folder.filePath(name)));
    EXPECT_FALSE(pathFile.replaceFolder("/d"));
    EXPECT_TRUE(QFileInfo(folder.filePath(name)).isSymLink() && QFile::remove(folder.filePath(name)));
    write(name, "/d\r\n");
    EXPECT_FALSE(pathFile.writeFolder("/café"));
    EXPECT_EQ(read(name), "/d\r\n");
    EXPECT_FALSE(PathFile(folder.filePath("none")).writeFolder("/d"));
}

TEST_F(PathFileTest, standsBesideAProgramUnlessThatIsInstalled)
{
    const QDir root(folder.path());
    ASSERT_TRUE(
        root.mkpath("noted") && root.mkpath("plain") && QFile::link(root.filePath("plain"), root.filePath("link")));
    write("noted/diadromh.DAT", "/books");
    qputenv("XDG_CONFIG_HOME", root.filePath("config").toUtf8());
    const struct {
        const char* own;
        const char* installed;
        const char* expected;
    } cases[] = {{"noted", "noted", "noted"}, {"plain", "noted", "plain"}, {"plain", "plain", "config/Lorvan"},
        {"plain", "link", "config/Lorvan"}, {"plain", "nowhere", "plain"}};
    for (const auto& [own, installed, expected] : cases)
        EXPECT_EQ(programFolder(root.filePath(own), root.filePath(installed)), root.filePath(expected))
            << own << installed;
    EXPECT_EQ(QFileInfo(root.filePath("config/Lorvan")).permissions() & 0x077, 0);
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(PathFileTest, decidesHowTheProgramStarts)
{
    const QDir root(folder.path());
    ASSERT_TRUE(root.mkpath("book") && root.mkpath("old") && root.mkpath("odd/lorvan.mdb"));
    write("book/lorvan.mdb", "anything");
    write("old/lorvan.mdb", QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    const struct {
        StartOutcome outcome;
        QStringList paths;
    } cases[] = {
        {StartOutcome::SignIn, {root.filePath("book")}},
        {StartOutcome::OldFormat, {root.filePath("old")}},
        {StartOutcome::DatabaseMissing, {root.path(), root.filePath("odd"), "2005a"}},
        {StartOutcome::PathWritten, {"", "   ", "0", "2005", "-1.5", "1.234"}},
    };
    for (const auto& [outcome, paths] : cases) {
        for (const QString& path : paths) {
            write(name, path.toUtf8() + "\r\n");
            EXPECT_EQ(decideStart(root.path()).outcome, outcome) << path.toStdString();
            const bool isRewritten = outcome == StartOutcome::PathWritten;
            EXPECT_EQ(read(name), (isRewritten ? root.path() : path).toUtf8() + "\r\n") << path.toStdString();
        }
    }
}

} // namespace lorvan::test

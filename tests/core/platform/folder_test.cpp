#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"
#include "support/files.h"

#include <QTemporaryDir>

#include <sys/stat.h>

namespace lorvan::test {
namespace {

class FolderTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(root.path()).mkdir("elsewhere"));
        write("elsewhere/dear", "kept");
    }

    void write(const QString& name, const QByteArray& content) const { writeFile(root.filePath(name), content); }
    [[nodiscard]] QByteArray read(const QString& name) const { return readFile(root.filePath(name)); }
    void link(const QString& target, const QString& name) const
    {
        ASSERT_TRUE(QFile::link(root.filePath(target), root.filePath(name)));
    }

    const QTemporaryDir root;
    const Folder book = Folder(root.path()).openOrMakeFolder("book");
};

} // namespace

TEST_F(FolderTest, aPlantedLinkLeadsNowhere)
{
    link("elsewhere/dear", "book/file");
    link("elsewhere", "book/folder");
    for (const auto how : {Folder::Opening::Read, Folder::Opening::Write, Folder::Opening::WriteOrMake})
        EXPECT_THROW((void)book.open("file", how), FileError);
    EXPECT_THROW((void)book.openFolder("folder"), FileError);
    EXPECT_THROW((void)book.openOrMakeFolder("folder"), FileError);
    EXPECT_EQ(book.kindOf("file"), Folder::Kind::Other);

    book.replace("file", "ours");
    EXPECT_EQ(read("book/file"), "ours");
    book.removeTree("folder");
    ASSERT_TRUE(QDir(book.path()).mkpath("work/deep"));
    write("book/work/deep/file", "x");
    link("elsewhere", "book/work/deep/link");
    book.removeTree("work");
    EXPECT_EQ(namesIn(book.path()), "file");
    EXPECT_EQ(read("elsewhere/dear"), "kept");
}

TEST_F(FolderTest, aFilesAccessIsThatOfWhatItReplacesOrOfItsFolder)
{
    using Access = FileAccess;
    const struct {
        mode_t folder;
        mode_t earlier; ///< 0 for none.
        Access access;
        mode_t expected;
    } cases[] = {{0755, 0, Access::LikeFolder, 0644}, {0770, 0, Access::LikeFolder, 0660},
        {0700, 0, Access::LikeFolder, 0600}, {0755, 0, Access::Owner, 0600}, {0700, 0664, Access::LikeFolder, 0664},
        {0700, 0664, Access::Owner, 0660}};
    for (const auto& each : cases) {
        book.remove("file");
        if (each.earlier != 0) {
            write("book/file", "earlier");
            ::chmod(book.pathOf("file").toUtf8().constData(), each.earlier);
        }
        ::chmod(book.path().toUtf8().constData(), each.folder);
        book.replace("file", "x", each.access);
        EXPECT_EQ(modeOf(book.pathOf("file")), each.expected) << std::oct << each.folder << ' ' << each.earlier;
    }
}

TEST_F(FolderTest, aNameThatIsTakenStays)
{
    write("book/one", "1");
    write("book/two", "2");
    EXPECT_THROW(book.rename("one", book, "two"), FileError);
    EXPECT_THROW((void)book.open("two", Folder::Opening::MakeNew), FileError);
    EXPECT_EQ(read("book/two"), "2");
    book.rename("one", book, "two", Folder::Taken::Replace);
    EXPECT_EQ(read("book/two"), "1");
}

TEST_F(FolderTest, aPathThatTheUserNamesMayBeALink)
{
    link("elsewhere/dear", "book/settings");
    link("elsewhere/later", "book/new");
    replaceFile(root.filePath("book/settings"), "changed", FileAccess::Owner);
    replaceFile(root.filePath("book/new"), "made", FileAccess::Owner);
    EXPECT_EQ(read("elsewhere/dear"), "changed");
    EXPECT_EQ(read("elsewhere/later"), "made");
}

} // namespace lorvan::test

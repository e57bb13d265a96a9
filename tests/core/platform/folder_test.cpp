#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/files/folder.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lorvan::test {
namespace {

class FolderTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(root.path()).mkdir(QStringLiteral("book")));
        ASSERT_TRUE(QDir(root.path()).mkdir(QStringLiteral("elsewhere")));
        write(QStringLiteral("elsewhere/dear"), "kept");
    }

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(root.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QByteArray read(const QString& name) const
    {
        QFile file(root.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void link(const QString& target, const QString& name) const
    {
        ASSERT_TRUE(QFile::link(root.filePath(target), root.filePath(name)));
    }
    [[nodiscard]] mode_t modeOf(const QString& name) const
    {
        struct stat found { };
        return ::stat(root.filePath(name).toUtf8().constData(), &found) == 0 ? found.st_mode & 0777U : 0;
    }

    QTemporaryDir root;
};

} // namespace

TEST_F(FolderTest, aPlantedLinkLeadsNowhere)
{
    const Folder book(root.filePath(QStringLiteral("book")));
    link(QStringLiteral("elsewhere/dear"), QStringLiteral("book/file"));
    link(QStringLiteral("elsewhere"), QStringLiteral("book/folder"));
    for (const auto how : {Folder::Opening::Read, Folder::Opening::Write, Folder::Opening::WriteOrMake})
        EXPECT_THROW((void)book.open(QStringLiteral("file"), how), FileError);
    EXPECT_THROW((void)book.openFolder(QStringLiteral("folder")), FileError);
    EXPECT_THROW((void)book.openOrMakeFolder(QStringLiteral("folder")), FileError);
    EXPECT_EQ(book.kindOf(QStringLiteral("file")), Folder::Kind::Other);

    book.replace(QStringLiteral("file"), "ours");
    EXPECT_EQ(read(QStringLiteral("book/file")), "ours");
    book.removeTree(QStringLiteral("folder"));
    EXPECT_FALSE(book.exists(QStringLiteral("folder")));
    EXPECT_EQ(read(QStringLiteral("elsewhere/dear")), "kept");
}

TEST_F(FolderTest, whatIsRemovedIsInside)
{
    const Folder book(root.filePath(QStringLiteral("book")));
    ASSERT_TRUE(QDir(book.path()).mkpath(QStringLiteral("work/deep")));
    write(QStringLiteral("book/work/deep/file"), "x");
    link(QStringLiteral("elsewhere"), QStringLiteral("book/work/deep/link"));
    book.removeTree(QStringLiteral("work"));
    EXPECT_FALSE(book.exists(QStringLiteral("work")));
    EXPECT_EQ(read(QStringLiteral("elsewhere/dear")), "kept");
}

TEST_F(FolderTest, aFilesAccessIsThatOfWhatItReplacesOrOfItsFolder)
{
    using Access = FileAccess;
    const Folder book(root.filePath(QStringLiteral("book")));
    const struct {
        mode_t folder;
        mode_t earlier; ///< 0 for none.
        Access access;
        mode_t expected;
    } cases[] = {
        {0755, 0, Access::LikeFolder, 0644},
        {0770, 0, Access::LikeFolder, 0660},
        {0700, 0, Access::LikeFolder, 0600},
        {0755, 0, Access::Owner, 0600},
        {0700, 0664, Access::LikeFolder, 0664},
        {0700, 0664, Access::Owner, 0660},
    };
    for (const auto& each : cases) {
        book.remove(QStringLiteral("file"));
        if (each.earlier != 0) {
            write(QStringLiteral("book/file"), "earlier");
            ::chmod(book.pathOf(QStringLiteral("file")).toUtf8().constData(), each.earlier);
        }
        ::chmod(book.path().toUtf8().constData(), each.folder);
        book.replace(QStringLiteral("file"), "x", each.access);
        EXPECT_EQ(modeOf(QStringLiteral("book/file")), each.expected) << std::oct << each.folder << ' ' << each.earlier;
    }
}

TEST_F(FolderTest, aNameThatIsTakenStays)
{
    const Folder book(root.filePath(QStringLiteral("book")));
    write(QStringLiteral("book/one"), "1");
    write(QStringLiteral("book/two"), "2");
    EXPECT_THROW(book.rename(QStringLiteral("one"), book, QStringLiteral("two")), FileError);
    EXPECT_THROW((void)book.open(QStringLiteral("two"), Folder::Opening::MakeNew), FileError);
    EXPECT_EQ(read(QStringLiteral("book/two")), "2");
    book.rename(QStringLiteral("one"), book, QStringLiteral("two"), Folder::Taken::Replace);
    EXPECT_EQ(read(QStringLiteral("book/two")), "1");
}

TEST_F(FolderTest, aPathThatTheUserNamesMayBeALink)
{
    link(QStringLiteral("elsewhere/dear"), QStringLiteral("book/settings"));
    link(QStringLiteral("elsewhere/later"), QStringLiteral("book/new"));
    replaceFile(root.filePath(QStringLiteral("book/settings")), "changed", FileAccess::Owner);
    replaceFile(root.filePath(QStringLiteral("book/new")), "made", FileAccess::Owner);
    EXPECT_EQ(read(QStringLiteral("elsewhere/dear")), "changed");
    EXPECT_EQ(read(QStringLiteral("elsewhere/later")), "made");
}

} // namespace lorvan::test

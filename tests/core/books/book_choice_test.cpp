#include "books/book_choice.h"
#include "books/book_look.h"
#include "platform/work.h"
#include "support/files.h"
#include "support/temporary_book.h"

namespace lorvan::test {
namespace {

/// A program folder and a user's settings of their own; the folder names stand for books.
class BookChoiceTest : public testing::Test {
protected:
    static QString made(const QString& path)
    {
        writeFile(path, {});
        return path;
    }
    void writePathFile(const QString& content) const { writeFile(pathFile, content.toUtf8()); }
    [[nodiscard]] QStringList headings() const
    {
        QStringList names;
        for (const KnownBook& each : choice.books())
            names += each.settings.heading;
        return names;
    }

    QTemporaryDir folder;
    TemporaryBook first;
    TemporaryBook second;
    const QString program = made(folder.filePath("program/lorvan"));
    const QString pathFile = folder.filePath("program/DIADROMH.DAT");
    const KnownBooks known{SettingsStore(folder.filePath("settings/Lorvan.ini"))};
    const BookChoice choice{program, known};
    const QDateTime now = fixedClock().now();
};

} // namespace

TEST_F(BookChoiceTest, takesOverThePathFileBeforeItWritesTheChosenBook)
{
    EXPECT_FALSE(choice.present() || choice.onlyBook());
    for (const QString& none : {QString("0,1,Α"), folder.filePath("program")}) {
        writePathFile(none);
        EXPECT_TRUE(choice.books().empty()) << none;
    }
    writePathFile(first.folder() + ",65280,Πρώτο");
    EXPECT_FALSE(choice.onlyBook()) << "nobody could sign in";
    first.addUser("ΜΑΡΙΑ", "1");
    ASSERT_TRUE(choice.onlyBook());
    EXPECT_EQ(choice.onlyBook()->settings.heading, "Πρώτο");
    EXPECT_TRUE(known.list().empty()) << "looking on writes nothing";

    const QString heading = "Τ' \"άλλο\", β";
    {
        const auto guard = choice.choose({second.folder(), 255, heading}, now);
    }
    const DataFolderSettings written = PathFile(folder.filePath("program")).read();
    EXPECT_EQ(written.dataFolder, second.folder());
    EXPECT_EQ(written.backgroundColour, 255);
    EXPECT_EQ(written.heading, heading);
    EXPECT_EQ(headings(), QStringList({heading, "Πρώτο"}));
    EXPECT_EQ(known.list().at(1).settings.backgroundColour, 65280);
    EXPECT_EQ(known.list().at(0).opened, now);
    EXPECT_FALSE(choice.onlyBook());

    EXPECT_EQ(choice.settingsOf(first.folder()).heading, "Πρώτο");
    EXPECT_EQ(choice.settingsOf(folder.path()).heading, "Κεντρικό") << "not another book's";

    writePathFile(second.folder() + "/../" + QFileInfo(second.folder()).fileName() + ",7,Με το χέρι");
    EXPECT_EQ(headings(), QStringList({"Με το χέρι", "Πρώτο"})) << "by hand, and the same folder";
    choice.forget(second.folder());
    EXPECT_EQ(headings(), QStringList("Πρώτο"));
    EXPECT_TRUE(QFile::exists(second.files().mainDatabase()));
    EXPECT_TRUE(choice.onlyBook());
    QFile::remove(first.files().auxiliaryDatabase());
    EXPECT_FALSE(choice.onlyBook());
}

TEST_F(BookChoiceTest, changesNothingWhileTheProgramRunsOrTheFolderDoesNotFit)
{
    writePathFile(first.folder());
    const auto expectRefusal = [&](const DataFolderSettings& book, const char* reason) {
        EXPECT_NE(failureOf([&] { (void)choice.choose(book, now); }).find(reason), std::string::npos) << reason;
        EXPECT_EQ(readFile(pathFile), first.folder().toUtf8());
        EXPECT_TRUE(known.list().empty());
    };
    EXPECT_FALSE(choice.isProgramRunning());
    {
        InstanceGuard running(program);
        ASSERT_TRUE(running.isOnlyInstance());
        EXPECT_TRUE(choice.isProgramRunning());
        expectRefusal({second.folder()}, "ήδη ανοιχτό");
        EXPECT_NE(failureOf([&] { choice.forget(first.folder()); }), "");
    }
    expectRefusal({"/βιβλίο/漢字"}, "Windows-1253");
    {
        const auto guard = choice.choose({second.folder()}, now);
        EXPECT_FALSE(InstanceGuard(program).isOnlyInstance()) << "the program waits for the choice";
    }
    EXPECT_TRUE(InstanceGuard(program).isOnlyInstance());
}

TEST_F(BookChoiceTest, looksAtABookWithoutChangingIt)
{
    first.addUser("Σοφία", "μυστικό");
    const auto look = [](const QString& at) { return lookAtBook(at).condition; };
    EXPECT_EQ(look(first.folder()), BookCondition::Ready);
    EXPECT_TRUE(lookAtBook(first.folder()).hasUsers);
    EXPECT_FALSE(lookAtBook(second.folder()).hasUsers);
    EXPECT_GT(lookAtBook(first.folder()).size, 0);
    EXPECT_TRUE(lookAtBook(first.folder()).lastUse.isValid());
    EXPECT_EQ(look(folder.filePath("none")), BookCondition::Missing);
    EXPECT_EQ(look(olderBook("v3")), BookCondition::OlderFormat);
    const QByteArray whole = readFile(first.files().mainDatabase());
    writeFile(first.files().mainDatabase(), whole.left(whole.size() / 2).replace(100, 50, QByteArray(50, 'x')));
    EXPECT_EQ(look(first.folder()), BookCondition::Damaged);
    QFile::remove(second.files().auxiliaryDatabase());
    EXPECT_EQ(look(second.folder()), BookCondition::Damaged);
    for (const auto& [bytes, text] : {std::pair<qint64, const char*>{0, "0 KB"}, {123'000, "120 KB"},
             {1'300'000, "1,2 MB"}, {50'000'000, "48 MB"}, {5'000'000'000, "4,7 GB"}})
        EXPECT_EQ(sizeText(bytes), text);
}

} // namespace lorvan::test

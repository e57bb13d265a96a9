#include "support/mount.h"
#include "support/opened_book.h"
#include "support/temporary_book.h"
#include "support/work.h"

#include <QFile>

#include <gtest/gtest.h>

#include <iostream>

namespace lorvan::test {
namespace {

QString refusalOf(const QString& folder)
{
    try {
        OpenedBook book(folder);
    } catch (const Refused& refusal) {
        return QString::fromUtf8(refusal.what());
    } catch (const std::exception& failure) {
        return QStringLiteral("other: ") + QString::fromUtf8(failure.what());
    }
    return QStringLiteral("opened");
}

} // namespace

TEST(OpenedBook, refusesWhatIsNoBookOfThisVersionAndLeavesItAsItIs)
{
    const TemporaryBook oldFormat;
    QFile(oldFormat.files().mainDatabase()).remove();
    QFile jet(oldFormat.files().mainDatabase());
    ASSERT_TRUE(jet.open(QIODevice::WriteOnly));
    jet.write(QByteArray("\0\1\0\0Standard Jet DB", 19) + QByteArray(4096, '\0'));
    jet.close();
    const TemporaryBook halved;
    QFile::remove(halved.files().auxiliaryDatabase());
    const TemporaryBook older;
    older.execute("UPDATE taytothta SET ariumos=2");
    const TemporaryBook versionless;
    versionless.makeVersionless();

    EXPECT_TRUE(refusalOf(oldFormat.folder()).contains(QStringLiteral("παλιά μορφή")));
    EXPECT_TRUE(refusalOf(halved.folder()).contains(QStringLiteral("λείπει το ") + halved.files().auxiliaryDatabase()));
    EXPECT_TRUE(refusalOf(older.path(QStringLiteral("nowhere"))).contains(QStringLiteral("δεν υπάρχει βιβλίο")));
    for (const TemporaryBook* book : {&older, &versionless})
        EXPECT_TRUE(refusalOf(book->folder()).contains(QStringLiteral("παλαιότερης έκδοσης")));
    Connection main = older.openMain();
    EXPECT_EQ(valueOf(main, "SELECT ariumos FROM taytothta"), QStringLiteral("2"));
}

TEST(OpenedBook, readsBothFilesWhileAnotherWritesThemAndOnAReadOnlyFolder)
{
    const TemporaryBook book;
    book.close(QDate(2024, 3, 15));
    Connection other = book.openMain();
    other.execute("BEGIN IMMEDIATE; DELETE FROM kvdikoi");
    const auto rows = [](OpenedBook& opened) {
        return valueOf(
            opened.connection(), "SELECT (SELECT count(*) FROM kvdikoi)||'/'||(SELECT count(*) FROM klhsimotameioy)");
    };
    OpenedBook beside(book.folder());
    EXPECT_EQ(rows(beside), QStringLiteral("2/1"));
    other.execute("ROLLBACK");

    if (!Mount::readOnly(book.folder())) {
        std::cout << "no mounts here: the read-only folder was not tried\n";
        return;
    }
    {
        OpenedBook opened(book.folder());
        EXPECT_EQ(rows(opened), QStringLiteral("2/1"));
        EXPECT_TRUE(opened.connection().isReadOnly());
    }
    Mount::undo(book.folder());
}

} // namespace lorvan::test

#include "book/claimed_marker.h"
#include "platform/windows1253.h"
#include "tools/tool_run.h"

namespace lorvan::test {

using ClaimedMarkerTest = CommandTest;

TEST_F(ClaimedMarkerTest, shutsOutEverybodyWhileItLivesAndIsFreeAfterAnException)
{
    UsageMarker colleague(book.files().usageMarker(), {"ΑΝΝΑ", "PC7"});
    UsageMarker sameUser(book.files().usageMarker(), machineIdentity());
    try {
        const ClaimedMarker marker(book.files());
        EXPECT_FALSE(colleague.claim());
        EXPECT_FALSE(sameUser.claim());
        throw std::runtime_error("the work fails");
    } catch (const std::runtime_error&) {
        EXPECT_TRUE(colleague.claim());
    }
}

TEST_F(ClaimedMarkerTest, isRefusedToEachCommandThatChangesTheBook)
{
    ASSERT_EQ(run("backup|@|#/a.tar").status, ExitStatus::Done);
    writeFile(words("#/csv/omades.csv"), "aa,perigrafh\n7,x\n");
    UsageMarker other(book.files().usageMarker(), {"ΑΝΝΑ", "PC7"});
    ASSERT_TRUE(other.claim());
    for (const char* const line : {"check|@|--repair", "import-csv|@|#/csv", "restore|#/a.tar|@|--replace"})
        expectRefusal(line, "ΑΝΝΑ στον υπολογιστή PC7");
    EXPECT_EQ(run("check|@").status, ExitStatus::Done) << "looking is allowed";
}

TEST_F(ClaimedMarkerTest, leavesAMarkerAloneThatIsInUseMissingOrInvalid)
{
    const MachineIdentity self = machineIdentity();
    const QByteArray own =
        '1' + toWindows1253(self.user).leftJustified(25) + toWindows1253(self.computer).leftJustified(25);
    const QString marker = book.files().usageMarker();
    for (const auto& [content, message] : {std::pair(own, self.computer.toUtf8()),
             std::pair(QByteArray(), QByteArray("έγκυρο")), std::pair(QByteArray(51, 'x'), QByteArray("έγκυρο"))}) {
        writeFile(marker, content);
        expectRefusal("check|@|--repair", message.constData());
        EXPECT_EQ(readFile(marker), content);
    }
    QFile::remove(marker);
    expectRefusal("check|@|--repair", "Λείπει");
    EXPECT_FALSE(QFile::exists(marker)) << "a refusal makes no marker";
    ASSERT_TRUE(QFile::link(words("@/nothing"), marker));
    expectRefusal("check|@|--repair", "σύνδεσμος");
}

} // namespace lorvan::test

#include "marker/notices.h"
#include "marker/usage_marker.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(NoticeBoard, theMostUrgentIsShownAndTheOthersFollow)
{
    using enum NoticeKind;
    const auto saying = [](const char* text) { return Notice{text, "because"}; };
    NoticeBoard board;
    EXPECT_EQ(board.shown().text, QString());
    board.put(OpenDays, {"open", "because", false, true});
    EXPECT_EQ(board.shown().text, "open");
    board.put(DayClosed, {"closed", {}, false});
    board.put(Undo, {"undo", {}, false});
    board.put(BackupFailed, saying("backup"));
    board.put(LocksKeepNobodyOut, saying("locks"));
    board.put(DiskIsWeak, saying("disk"));
    board.put(HeldByAnother, saying("held"));
    board.put(DayCorrected, saying("corrected"));
    board.put(BalancesWrong, saying("wrong"));
    const std::pair<NoticeKind, const char*> inOrder[] = {{BalancesWrong, "wrong"}, {DayCorrected, "corrected"},
        {HeldByAnother, "held"}, {LocksKeepNobodyOut, "locks"}, {DiskIsWeak, "disk"}, {BackupFailed, "backup"},
        {Undo, "undo"}, {DayClosed, "closed"}, {OpenDays, "open"}};
    for (std::size_t left = std::size(inOrder); const auto& [kind, text] : inOrder) {
        EXPECT_EQ(board.shown().text, text);
        ASSERT_EQ(board.others().size(), --left);
        if (left > 0) {
            EXPECT_EQ(board.others().front().first, inOrder[std::size(inOrder) - left].first);
        }
        EXPECT_EQ(board.shownKind(), kind);
        EXPECT_EQ(board.shown().isWarning, kind < Undo);
        EXPECT_EQ(board.shown().leadsOn, kind == OpenDays);
        EXPECT_TRUE(board.shown().reason.endsWith("because")) << "the last one's stays to the end";
        board.remove(kind);
    }
}

TEST(HeldNotice, saysSinceWhenUnlessThatIsStillToCome)
{
    const QDateTime now({2026, 11, 21}, {12, 0});
    const std::pair<QDateTime, const char*> cases[] = {{QDateTime({2026, 11, 21}, {9, 5}), "γραφείο από τις 09:05. "},
        {QDateTime({2026, 11, 20}, {18, 30}), "γραφείο από 20-11-2026 18:30. "}, {now, "γραφείο από τις 12:00. "},
        {now.addSecs(1), "γραφείο. "}, {QDateTime(), "γραφείο. "}};
    for (const auto& [since, text] : cases) {
        const Notice notice = heldNotice({{"Ελένη", "γραφείο"}, since}, now);
        EXPECT_TRUE(notice.text.contains(text)) << notice.text.toStdString();
    }
}

} // namespace lorvan::test

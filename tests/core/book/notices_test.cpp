#include "book/notices.h"
#include "book/usage_marker.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(NoticeBoard, theMostUrgentIsShownAndTheOthersAreCounted)
{
    using enum NoticeKind;
    const auto saying = [](const char* text) { return Notice{QString::fromUtf8(text), QStringLiteral("because")}; };
    NoticeBoard board;
    EXPECT_EQ(board.shown().text, QString());
    board.put(BackupFailed, saying("backup"));
    EXPECT_EQ(board.shown().text, QStringLiteral("backup"));
    board.put(HeldByAnother, saying("held"));
    board.put(DiskIsWeak, saying("disk"));
    board.put(LocksKeepNobodyOut, saying("locks"));
    board.put(DayClosed, {QStringLiteral("closed"), {}, false});
    const struct {
        NoticeKind kind;
        const char* text;
    } inOrder[] = {{DayClosed, "closed  (και 4 ακόμη)"}, {LocksKeepNobodyOut, "locks  (και 3 ακόμη)"},
        {HeldByAnother, "held  (και 2 ακόμη)"}, {DiskIsWeak, "disk  (και 1 ακόμη)"}, {BackupFailed, "backup"}};
    for (const auto& [kind, text] : inOrder) {
        EXPECT_EQ(board.shown().text, QString::fromUtf8(text));
        EXPECT_EQ(board.shown().isWarning, kind != DayClosed);
        EXPECT_TRUE(board.shown().reason.endsWith(QStringLiteral("because"))) << "the last one's stays to the end";
        board.remove(kind);
    }
}

TEST(HeldNotice, saysSinceWhenUnlessThatIsStillToCome)
{
    const QDateTime now({2026, 11, 21}, {12, 0});
    const struct {
        QDateTime since;
        const char* text;
    } cases[] = {{QDateTime({2026, 11, 21}, {9, 5}), "γραφείο από τις 09:05. "},
        {QDateTime({2026, 11, 20}, {18, 30}), "γραφείο από 20-11-2026 18:30. "}, {now, "γραφείο από τις 12:00. "},
        {now.addSecs(1), "γραφείο. "}, {QDateTime(), "γραφείο. "}};
    for (const auto& [since, text] : cases) {
        const Notice notice = heldNotice({{QStringLiteral("Ελένη"), QStringLiteral("γραφείο")}, since}, now);
        EXPECT_TRUE(notice.text.contains(QString::fromUtf8(text))) << notice.text.toStdString();
    }
}

} // namespace lorvan::test

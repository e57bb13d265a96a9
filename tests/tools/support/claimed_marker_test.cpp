#include "platform/windows1253.h"
#include "support/claimed_marker.h"
#include "support/temporary_book.h"
#include "support/work.h"
#include "support/worker_process.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>

namespace lorvan::test {
namespace {

QByteArray markerOf(const TemporaryBook& book)
{
    QFile file(book.files().usageMarker());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("none");
}

void writeMarker(const TemporaryBook& book, const QByteArray& content)
{
    QFile file(book.files().usageMarker());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

QString refusalOf(const TemporaryBook& book)
{
    try {
        const ClaimedMarker marker(book.files());
    } catch (const Refused& refusal) {
        return QString::fromUtf8(refusal.what());
    }
    return {};
}

} // namespace

TEST(ClaimedMarker, shutsOutEverybodyWhileItLivesAndIsFreeAfterAnException)
{
    const TemporaryBook book;
    UsageMarker colleague(book.files().usageMarker(), {QStringLiteral("ΑΝΝΑ"), QStringLiteral("PC7")});
    UsageMarker sameUser(book.files().usageMarker(), machineIdentity());
    try {
        const ClaimedMarker marker(book.files());
        EXPECT_FALSE(colleague.claim());
        EXPECT_FALSE(sameUser.claim());
        EXPECT_TRUE(refusalOf(book).contains(machineIdentity().computer)) << "a second command";
        throw std::runtime_error("the work fails");
    } catch (const std::runtime_error&) {
        EXPECT_TRUE(colleague.claim());
    }
}

TEST(ClaimedMarker, refusesAMarkerThatIsInUseMissingOrInvalidAndLeavesItAlone)
{
    const MachineIdentity self = machineIdentity();
    const QByteArray own =
        '1' + toWindows1253(self.user).leftJustified(25) + toWindows1253(self.computer).leftJustified(25);
    const struct {
        QByteArray content;
        QString message;
    } cases[] = {
        {"1" + QByteArray("BOSS").leftJustified(25) + QByteArray("PC7").leftJustified(25),
            QStringLiteral("τον χρήστη BOSS στον υπολογιστή PC7.")},
        {own, self.computer},
        {QByteArray(), QStringLiteral("έγκυρο")},
        {QByteArray(51, 'x'), QStringLiteral("έγκυρο")},
    };
    for (const auto& [content, message] : cases) {
        const TemporaryBook book;
        writeMarker(book, content);
        EXPECT_TRUE(refusalOf(book).contains(message)) << content.constData() << refusalOf(book).toStdString();
        EXPECT_EQ(markerOf(book), content);
    }
    const TemporaryBook book;
    QFile::remove(book.files().usageMarker());
    EXPECT_TRUE(refusalOf(book).contains(QStringLiteral("Λείπει")));
    EXPECT_EQ(markerOf(book), "none") << "a refusal makes no marker";
    ASSERT_TRUE(QFile::link(book.path(QStringLiteral("nothing")), book.files().usageMarker()));
    EXPECT_TRUE(refusalOf(book).contains(QStringLiteral("σύνδεσμος"))) << refusalOf(book).toStdString();
}

TEST(ClaimedMarker, isFreeAfterASignalThatAsksTheProcessToEnd)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        const TemporaryBook book;
        const QString log = book.path(QStringLiteral("log"));
        WorkerProcess command({QStringLiteral("claim"), book.folder(), log});
        ASSERT_TRUE(command.waitForLog(log)) << command.output().toStdString();
        EXPECT_TRUE(markerOf(book).startsWith('1'));
        command.send(signal);
        EXPECT_EQ(command.waitForExit(10), 0) << "ended by signal " << signal;
        EXPECT_TRUE(markerOf(book).startsWith('0')) << signal;
    }
}

} // namespace lorvan::test

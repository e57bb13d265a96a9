#include "book/failure_text.h"
#include "platform/engine/sql_error.h"
#include "support/temporary_book.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <functional>

namespace lorvan::test {
namespace {

void overwrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(DamagedFiles, eachIsReportedForWhatItIsAndLeftAsItWas)
{
    using Kind = SqlError::Kind;
    const struct {
        const char* name;
        std::function<void(const QString&)> damage;
        QByteArray password;
        Kind kind;
    } cases[] = {
        {"wrong password", [](const QString&) {}, "TelmaHarbour", Kind::NotADatabase},
        {"half a file", [](const QString& path) { QFile::resize(path, QFile(path).size() / 2 / 1024 * 1024); },
            bookPassword(), Kind::Damaged},
        {"less than a page", [](const QString& path) { QFile::resize(path, 700); }, bookPassword(), Kind::NotADatabase},
        {"empty file", [](const QString& path) { overwrite(path, {}); }, bookPassword(), Kind::NotADatabase},
        {"foreign file", [](const QString& path) { overwrite(path, QByteArray(8192, 'x')); }, bookPassword(),
            Kind::NotADatabase},
        {"missing file", [](const QString& path) { QFile::remove(path); }, bookPassword(), Kind::CannotOpen},
        {"folder in its place",
            [](const QString& path) {
                QFile::remove(path);
                QDir().mkdir(path);
            },
            bookPassword(), Kind::CannotOpen},
    };
    for (const auto& damaged : cases) {
        const TemporaryBook book;
        const QString path = book.files().auxiliaryDatabase();
        damaged.damage(path);
        const QByteArray before = contentOf(path);
        KeyRing keys(damaged.password);
        keys.prepare(path);
        try {
            Connection::open(path, keys.keyFor(path), Connection::Access::ReadWrite);
            ADD_FAILURE() << damaged.name << " was opened";
        } catch (const SqlError& error) {
            EXPECT_EQ(error.kind(), damaged.kind) << damaged.name << ": " << error.what();
            EXPECT_TRUE(failureText(error).endsWith(QString::fromUtf8(error.what()))) << damaged.name;
            EXPECT_FALSE(failureText(error).contains(QString::fromLatin1(damaged.password))) << damaged.name;
        }
        EXPECT_EQ(contentOf(path), before) << damaged.name;
    }
}

} // namespace lorvan::test

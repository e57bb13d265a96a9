#pragma once

#include "platform/engine/sql_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

#include <optional>
#include <sys/stat.h>

namespace lorvan::test {

/// Makes the folders that lead to it, too.
inline void writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()) << path.toStdString();
}

/// "(missing)" for one that cannot be read.
[[nodiscard]] inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

/// Its permissions; 0 where there is none.
[[nodiscard]] inline mode_t modeOf(const QString& path)
{
    struct stat found { };
    return ::lstat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & 07777U : 0;
}

/// What the folder holds, hidden or not, in its order and with a blank between.
[[nodiscard]] inline QString namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).join(u' ');
}

/// The words in which an action fails; none where it does not.
template <typename Action> std::string failureOf(const Action& action)
{
    try {
        action();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return {};
}

/// The kind of the engine's trouble in which an action ends.
template <typename Action> std::optional<SqlError::Kind> troubleOf(const Action& action)
{
    try {
        action();
    } catch (const SqlError& error) {
        return error.kind();
    }
    return std::nullopt;
}

/// The folder of a sample book in the older format: "v3", "v1" or "empty".
[[nodiscard]] inline QString olderBook(const QString& name)
{
    return QCoreApplication::applicationDirPath() + "/older-books/" + name;
}

/// What a program writes to its output.
[[nodiscard]] inline QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << program.toStdString();
    return process.readAllStandardOutput();
}

/// A part of a workbook.
[[nodiscard]] inline QByteArray partOf(const QString& workbook, const QString& part)
{
    return outputOf("unzip", {"-p", workbook, part});
}

} // namespace lorvan::test

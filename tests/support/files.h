#pragma once

#include "platform/engine/sql_error.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <optional>
#include <sys/stat.h>

namespace lorvan::test {

inline void writeFile(const QString& path, const QByteArray& content)
{
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

} // namespace lorvan::test

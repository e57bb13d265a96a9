#pragma once

#include "platform/files/file.h"
#include "platform/files/file_lock.h"
#include "platform/work.h"

namespace lorvan {

/// What `action`, which writes in a folder, returns; a FileError or LockRefused in it becomes Refused.
template <typename Action> auto asWriting(const QString& folder, const Action& action) -> decltype(action())
{
    const auto refused = [&folder](const QString& reason) {
        return Refused(QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία. %2").arg(folder, reason).trimmed());
    };
    try {
        return action();
    } catch (const FileError& error) {
        throw refused(error.reason());
    } catch (const LockRefused& error) {
        throw refused(QString::fromUtf8(error.what()));
    }
}

} // namespace lorvan

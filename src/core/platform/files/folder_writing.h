#pragma once

#include "platform/files/file.h"
#include "platform/files/file_lock.h"
#include "platform/files/system_reason.h"
#include "platform/work.h"

namespace lorvan {

/// What `action`, which writes in a folder, returns; a FileError or LockRefused in it becomes Refused.
template <typename Action> auto asWriting(const QString& folder, const Action& action) -> decltype(action())
{
    const QString refusal = QStringLiteral("Στον φάκελο %1 δεν γράφονται αρχεία").arg(folder);
    try {
        return action();
    } catch (const FileError& error) {
        throw Refused(QStringLiteral("%1: %2").arg(refusal, withStop(error.reason())));
    } catch (const LockRefused& error) {
        throw Refused(QStringLiteral("%1. %2").arg(refusal, QString::fromUtf8(error.what())));
    }
}

} // namespace lorvan

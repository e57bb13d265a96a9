#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace lorvan {

/// Something that cannot be done, and why, in Greek. Nothing was changed.
class Refused : public std::runtime_error {
public:
    explicit Refused(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
};

/// Called from time to time with how much of the whole is done. It may throw, which ends the work.
using StepProgress = std::function<void(qint64 done, qint64 whole)>;

} // namespace lorvan

#pragma once

#include <QString>

#include <stdexcept>

namespace lorvan {

/// Something that cannot be carried out, and why, in Greek. Nothing was changed.
class Refused : public std::runtime_error {
public:
    explicit Refused(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
};

} // namespace lorvan

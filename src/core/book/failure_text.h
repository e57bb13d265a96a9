#pragma once

#include <QString>

#include <exception>

namespace lorvan {

/// Mixed into an exception that itself explains in plain Greek what happened and what the user can do.
class PlainlyToldFailure {
public:
    virtual ~PlainlyToldFailure() = default;
    [[nodiscard]] virtual QString plainText() const = 0;
};

/// What happened and what the user can do, in plain Greek, followed by the failing component's own message. Meant for a
/// box titled "Προσοχή".
[[nodiscard]] QString failureText(const std::exception& failure);

} // namespace lorvan

#pragma once

#include <QString>

#include <exception>

namespace lorvan {

/// What happened and what the user can do, in plain Greek, with the failing component's own words after it. Meant for a
/// box titled "Προσοχή".
[[nodiscard]] QString failureText(const std::exception& failure);

} // namespace lorvan

#pragma once

#include "codes/code_catalogue.h"
#include "users/sign_in.h"

#include <vector>

namespace lorvan {

struct DemoUser {
    QString name;
    QString password;
    Rights rights;
};

/// The groups of the sample shop, a hardware store; numbered from 1 in this order.
[[nodiscard]] const std::vector<QString>& demoGroups();

/// The codes of the sample shop; `group` is the number of a demoGroups() entry.
[[nodiscard]] const std::vector<MovementCode>& demoCodes();

/// One user with all rights and one with none. Their passwords are not secret.
[[nodiscard]] const std::vector<DemoUser>& demoUsers();

} // namespace lorvan

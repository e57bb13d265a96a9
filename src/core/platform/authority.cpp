#include "platform/authority.h"

#include "platform/machine_identity.h"

#include <utility>

namespace lorvan {
namespace {

constexpr Rights allRights{true, true, true};

bool Rights::*placeOf(Right right)
{
    switch (right) {
    case Right::ModifyCash:
        return &Rights::modifyCash;
    case Right::CloseCash:
        return &Rights::closeCash;
    case Right::ModifyCodes:
        break;
    }
    return &Rights::modifyCodes;
}

const char* refusalFor(Right missing)
{
    switch (missing) {
    case Right::ModifyCash:
        return "Ο χρήστης δεν έχει το δικαίωμα να αλλάζει κλεισμένες ημέρες. Η αλλαγή δεν έγινε.";
    case Right::CloseCash:
        return "Ο χρήστης δεν έχει το δικαίωμα να κλείνει το ταμείο. Η ημέρα δεν έκλεισε.";
    case Right::ModifyCodes:
        break;
    }
    return "Ο χρήστης δεν έχει το δικαίωμα να αλλάζει κωδικούς και ομάδες. Η αλλαγή δεν έγινε.";
}

} // namespace

NotPermitted::NotPermitted(Right missing)
    : std::runtime_error(refusalFor(missing))
{
}

Authority::Authority(QString name, Rights rights, Clock clock)
    : m_name(std::move(name))
    , m_computer(machineIdentity().computer)
    , m_rights(rights)
    , m_clock(std::move(clock))
{
}

Authority Authority::user(const QString& name, Rights rights, Clock clock)
{
    return {name, rights, std::move(clock)};
}

Authority Authority::administrator(Clock clock)
{
    return {QStringLiteral("Διαχειριστής"), allRights, std::move(clock)};
}

Authority Authority::companion(Clock clock)
{
    return {QStringLiteral("lorvan-data"), allRights, std::move(clock)};
}

Authority Authority::program(Clock clock)
{
    return {QStringLiteral("Lorvan"), {}, std::move(clock)};
}

Authority Authority::sealing(Clock clock)
{
    return {QStringLiteral("Lorvan"), {.closeCash = true}, std::move(clock)};
}

Authority Authority::without(Right right) const
{
    Authority less = *this;
    less.m_rights.*placeOf(right) = false;
    return less;
}

bool Authority::has(Right right) const
{
    return m_rights.*placeOf(right);
}

void Authority::require(Right right) const
{
    if (!has(right))
        throw NotPermitted(right);
}

} // namespace lorvan

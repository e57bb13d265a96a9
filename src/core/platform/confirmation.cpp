#include "platform/confirmation.h"

#include <atomic>

namespace lorvan {
namespace {

std::atomic<bool> isUnconfirmed = false;

} // namespace

void noteUnconfirmed() noexcept
{
    isUnconfirmed = true;
}

bool takeUnconfirmed() noexcept
{
    return isUnconfirmed.exchange(false);
}

} // namespace lorvan

#include "platform/stop_check.h"

#include <utility>

namespace lorvan {
namespace {

thread_local const StopCheck* current = nullptr;
thread_local int stoppableReadings = 0;

} // namespace

StopCheck::StopCheck(std::function<bool()> goesOn)
    : m_goesOn(std::move(goesOn))
    , m_outer(std::exchange(current, this))
{
}

StopCheck::~StopCheck()
{
    current = m_outer;
}

bool StopCheck::goesOn()
{
    for (const StopCheck* each = current; each; each = each->m_outer) {
        if (!each->m_goesOn())
            return false;
    }
    return true;
}

Undisturbed::Undisturbed()
    : m_outer(std::exchange(current, nullptr))
{
}

Undisturbed::~Undisturbed()
{
    current = m_outer;
}

StoppableReading::StoppableReading()
{
    ++stoppableReadings;
}

StoppableReading::~StoppableReading()
{
    --stoppableReadings;
}

bool StoppableReading::isStopped()
{
    return stoppableReadings > 0 && !StopCheck::goesOn();
}

void continueOrGiveUp()
{
    if (!StopCheck::goesOn())
        throw GivenUp();
}

} // namespace lorvan

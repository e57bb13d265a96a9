#include "platform/clock.h"

#include <utility>

namespace lorvan {

Clock::Clock()
    : m_now([] { return QDateTime::currentDateTime(); })
{
}

Clock::Clock(QDateTime fixed)
    : m_now([fixed = std::move(fixed)] { return fixed; })
{
}

} // namespace lorvan

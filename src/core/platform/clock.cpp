#include "platform/clock.h"

namespace lorvan {

Clock::Clock()
    : m_now([] { return QDateTime::currentDateTime(); })
{
}

Clock::Clock(QDateTime fixed)
    : m_now([fixed] { return fixed; })
{
}

} // namespace lorvan

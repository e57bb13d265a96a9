#include "cashbook/late_sealing.h"

#include "book/lock_trust.h"
#include "cashbook/day_seal.h"
#include "marker/usage_marker.h"
#include "platform/authority.h"
#include "platform/stop_check.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds longestSleep{20};

} // namespace

LateSealing::LateSealing(BookFiles book, KeyRing& keys, Clock clock, Pace pace)
    : m_book(std::move(book))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_pace(pace)
{
}

LateSealing::LateSealing(BookFiles book, KeyRing& keys, Clock clock)
    : LateSealing(std::move(book), keys, std::move(clock), Pace())
{
}

LateSealing::~LateSealing()
{
    retire();
}

void LateSealing::start(const MachineIdentity& holder)
{
    if (m_isRetired || m_thread.joinable())
        return;
    m_holder = holder;
    m_isStopped = false;
    m_thread = std::thread([this, round = m_round] {
        int days = 0;
        try {
            days = sealAll();
        } catch (const std::exception&) {
            // The days stay closed as they are; the next proof begins this anew.
        }
        QMetaObject::invokeMethod(
            this,
            [this, round, days] {
                if (round == m_round)
                    end(days);
            },
            Qt::QueuedConnection);
    });
}

/// On the other thread.
int LateSealing::sealAll()
{
    const StopCheck stop([this] { return !m_isStopped; });
    int days = 0;
    if (!holdsMarker())
        return days;
    Connection book = openBoth(m_book, m_keys);
    const Authority authority = Authority::sealing(m_clock);
    while (holdsMarker()) {
        const int more = sealOlderDays(book, authority, m_pace.days);
        days += more;
        if (more == 0)
            break;
        for (const auto until = steady_clock::now() + m_pace.pause; !m_isStopped && steady_clock::now() < until;)
            std::this_thread::sleep_for(std::min(m_pace.pause, longestSleep));
    }
    return days;
}

bool LateSealing::holdsMarker() const
{
    if (m_isStopped)
        return false;
    const auto seen = UsageMarker::look(m_book.usageMarker());
    return seen && seen->identity.user == m_holder.user && seen->identity.computer == m_holder.computer;
}

void LateSealing::end(int days)
{
    m_thread.join();
    Q_EMIT ended(days);
}

void LateSealing::stop()
{
    ++m_round;
    m_isStopped = true;
    if (m_thread.joinable())
        m_thread.join();
}

void LateSealing::retire()
{
    m_isRetired = true;
    stop();
}

} // namespace lorvan

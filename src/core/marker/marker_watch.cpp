#include "marker/marker_watch.h"

#include <chrono>

namespace lorvan {
namespace {

constexpr std::chrono::seconds pause{3};

} // namespace

MarkerWatch::MarkerWatch(QString markerPath)
    : m_path(std::move(markerPath))
{
    m_thread.setMaxThreadCount(1);
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &MarkerWatch::look);
}

MarkerWatch::~MarkerWatch()
{
    stop();
}

void MarkerWatch::start()
{
    ++m_round;
    m_pause.start(pause);
}

void MarkerWatch::stop()
{
    ++m_round;
    m_pause.stop();
    m_thread.waitForDone();
}

void MarkerWatch::look()
{
    m_thread.start([this, round = m_round, path = m_path] {
        bool isKnown = false;
        std::optional<MarkerHolder> holder;
        try {
            holder = UsageMarker::look(path);
            isKnown = true;
        } catch (const MarkerError&) {
            // The next look may succeed.
        }
        QMetaObject::invokeMethod(
            this, [this, round, isKnown, holder] { end(round, isKnown, holder); }, Qt::QueuedConnection);
    });
}

void MarkerWatch::end(int round, bool isKnown, const std::optional<MarkerHolder>& holder)
{
    if (round != m_round)
        return;
    m_pause.start(pause);
    if (isKnown)
        Q_EMIT seen(holder);
}

} // namespace lorvan

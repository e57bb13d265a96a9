#include "proof/background_proof.h"

#include "book/failure_text.h"
#include "book/lock_trust.h"
#include "platform/stop_check.h"

#include <utility>

namespace lorvan {

BackgroundProof::BackgroundProof(BookFiles book, KeyRing& keys, const ProofPace& pace)
    : m_book(std::move(book))
    , m_keys(keys)
    , m_pace(pace)
{
}

BackgroundProof::~BackgroundProof()
{
    retire();
}

void BackgroundProof::start()
{
    if (m_isRetired)
        return;
    m_isStopped = m_isWantedAgain = m_isUnderWay;
    if (!m_isUnderWay)
        begin();
}

void BackgroundProof::begin()
{
    m_isUnderWay = true;
    m_isStopped = false;
    m_thread = std::thread(&BackgroundProof::run, this);
}

/// On the other thread.
void BackgroundProof::run()
{
    const auto tell = [this](std::function<void()> answer) {
        QMetaObject::invokeMethod(
            this, [this, answer = std::move(answer)] { end(answer); }, Qt::QueuedConnection);
    };
    const StopCheck stop([this] { return !m_isStopped; });
    try {
        Connection book = openBoth(m_book, m_keys, Connection::Access::ReadOnly);
        const auto progress = [this](qint64 done, qint64 whole) {
            QMetaObject::invokeMethod(
                this, [this, done, whole] { advance(done, whole); }, Qt::QueuedConnection);
        };
        tell([this, proof = proveBalancesAndSeals(book, m_pace, progress)] { Q_EMIT ended(proof); });
    } catch (const std::exception& failure) {
        tell([this, reason = failureText(failure)] { Q_EMIT failed(reason); });
    }
}

void BackgroundProof::advance(qint64 done, qint64 whole)
{
    if (m_isUnderWay && !m_isRetired && done < whole)
        Q_EMIT advanced(done, whole);
}

void BackgroundProof::end(const std::function<void()>& tell)
{
    if (m_isRetired)
        return;
    m_thread.join();
    m_isUnderWay = false;
    if (std::exchange(m_isWantedAgain, false))
        begin();
    else
        tell();
}

void BackgroundProof::retire()
{
    m_isRetired = true;
    m_isStopped = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace lorvan

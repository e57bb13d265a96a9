#include "proof/balance_watch.h"

#include <chrono>

namespace lorvan {
namespace {

constexpr std::chrono::seconds afterTheDay{1}; // when the first day has been painted

} // namespace

BalanceWatch::BalanceWatch(const BookFiles& book, KeyRing& keys, Clock clock)
    : m_book(book)
    , m_clock(std::move(clock))
    , m_proof(book, keys)
{
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &BalanceWatch::proveUnasked);
    connect(&m_proof, &BackgroundProof::advanced, this, &BalanceWatch::advanced);
    connect(&m_proof, &BackgroundProof::ended, this, &BalanceWatch::end);
    connect(&m_proof, &BackgroundProof::failed, this, &BalanceWatch::failed);
}

void BalanceWatch::bookIsWritable()
{
    if (!m_hasBegun)
        proveSoon();
}

void BalanceWatch::proveSoon()
{
    m_hasBegun = true;
    m_soon.start(afterTheDay);
}

void BalanceWatch::proveUnasked()
{
    const auto last = remembered();
    if (provesUnasked(isOnNetwork(m_book), last, m_clock.now()))
        m_proof.start();
    else
        Q_EMIT proved(*last);
}

void BalanceWatch::proveNow()
{
    m_proof.start();
}

void BalanceWatch::retire()
{
    m_soon.stop();
    m_proof.retire();
}

/// Settings that cannot be read or written cost no more than another proof.
std::optional<LastProof> BalanceWatch::remembered() const
{
    try {
        return lastProof(m_settings, m_book);
    } catch (const SettingsError&) {
        return std::nullopt;
    }
}

void BalanceWatch::end(const BalanceProof& proof)
{
    if (!proof.isProved()) {
        Q_EMIT found(proof);
        return;
    }
    const LastProof last{m_clock.now(), proof.movements, proof.days, proof.seals};
    try {
        rememberProof(m_settings, m_book, last);
    } catch (const SettingsError&) {
        // See remembered().
    }
    Q_EMIT proved(last);
    Q_EMIT provedNow();
}

} // namespace lorvan

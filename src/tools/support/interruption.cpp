#include "support/interruption.h"

#include <array>
#include <atomic>
#include <csignal>

namespace lorvan {
namespace {

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

enum State : int { Waiting, Come, Ignoring, ComeWhileIgnored };
std::atomic<int> state = Waiting; // without a lock, as a signal handler needs it
static_assert(std::atomic<int>::is_always_lock_free);
std::array<struct sigaction, endingSignals.size()> before{};

bool moveOn(int from, int to)
{
    return state.compare_exchange_strong(from, to);
}

void note(int)
{
    moveOn(Waiting, Come);
    moveOn(Ignoring, ComeWhileIgnored);
}

} // namespace

Interruption::Interruption()
{
    state = Waiting;
    struct sigaction noting { };
    noting.sa_handler = note;
    sigemptyset(&noting.sa_mask);
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        sigaction(endingSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN)
            sigaction(endingSignals[i], &noting, nullptr);
    }
}

Interruption::~Interruption()
{
    for (std::size_t i = 0; i < endingSignals.size(); ++i)
        sigaction(endingSignals[i], &before[i], nullptr);
}

bool Interruption::hasCome()
{
    return state == Come;
}

bool Interruption::ignoreFromNow()
{
    return moveOn(Waiting, Ignoring) || state == Ignoring || state == ComeWhileIgnored;
}

void Interruption::countAgain()
{
    if (!moveOn(Ignoring, Waiting))
        moveOn(ComeWhileIgnored, Come);
}

QString Interruption::message()
{
    return QStringLiteral("Η εντολή διακόπηκε. Δεν άλλαξε τίποτα.");
}

} // namespace lorvan

#include "support/interruption.h"

#include "platform/work.h"

#include <array>
#include <csignal>

namespace lorvan {
namespace {

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

volatile std::sig_atomic_t signalHasCome = 0;
std::array<struct sigaction, endingSignals.size()> before{};

void note(int)
{
    signalHasCome = 1;
}

} // namespace

Interruption::Interruption()
{
    signalHasCome = 0;
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
    return signalHasCome != 0;
}

QString Interruption::message()
{
    return QStringLiteral("Η εντολή διακόπηκε. Δεν άλλαξε τίποτα.");
}

void Interruption::throwIfCome()
{
    if (hasCome())
        throw Refused(message());
}

} // namespace lorvan

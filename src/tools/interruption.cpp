#include "tools/interruption.h"

#include "tools/refused.h"

namespace lorvan {
namespace {

volatile std::sig_atomic_t signalHasCome = 0;

void note(int)
{
    signalHasCome = 1;
}

} // namespace

Interruption::Interruption()
{
    signalHasCome = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before { };
        sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN)
            continue;
        struct sigaction noting { };
        noting.sa_handler = note;
        sigemptyset(&noting.sa_mask);
        sigaction(signal, &noting, nullptr);
        m_before.push_back({signal, before});
    }
}

Interruption::~Interruption()
{
    for (const Before& each : m_before)
        sigaction(each.signal, &each.action, nullptr);
}

bool Interruption::hasCome() const
{
    return signalHasCome != 0;
}

void Interruption::check() const
{
    if (hasCome())
        throw Refused(QStringLiteral("Η εντολή διακόπηκε. Δεν άλλαξε τίποτα."));
}

} // namespace lorvan

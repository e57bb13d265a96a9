#include "tools/interruption.h"

#include "tools/refused.h"

namespace lorvan {
namespace {

volatile std::sig_atomic_t hasCome = 0;

void note(int)
{
    hasCome = 1;
}

} // namespace

Interruption::Interruption()
{
    hasCome = 0;
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

void Interruption::check() const
{
    if (hasCome != 0)
        throw Refused(QStringLiteral("Η εντολή διακόπηκε. Δεν άλλαξε τίποτα."));
}

} // namespace lorvan

#include "start/termination_signals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace lorvan {
namespace {

std::array<int, 2> wakeUp{-1, -1};
volatile std::sig_atomic_t hasOneCome = 0;

/// Runs inside the signal handler, where little more than a write is allowed.
void onSignal(int)
{
    const char byte = 1;
    hasOneCome = 1;
    [[maybe_unused]] const auto written = ::write(wakeUp[0], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeUp.data()) != 0)
        return;
    auto* const notifier = new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(wakeUp[1], &byte, 1) == 1)
            Q_EMIT received();
    });
    struct sigaction action { };
    action.sa_handler = onSignal;
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(number, &action, nullptr);
}

bool TerminationSignals::haveCome()
{
    return hasOneCome != 0;
}

} // namespace lorvan

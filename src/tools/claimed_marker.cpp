#include "tools/claimed_marker.h"

#include "app/book_files.h"
#include "tools/refused.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace lorvan {
namespace {

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};
constexpr char noSignal = 0;

int signalPipe = -1; ///< Where the watch that began last is told of a signal.

void tell(int pipe, int number)
{
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = ::write(pipe, &byte, 1);
}

/// Runs inside the signal, where next to nothing is allowed but a write.
void onSignal(int number)
{
    tell(signalPipe, number);
}

void endBySignal(int number)
{
    std::signal(number, SIG_DFL);
    ::kill(::getpid(), number);
    for (;;)
        ::pause();
}

void claimFree(UsageMarker& marker, const BookFiles& files)
{
    if (!BookFiles::exists(files.usageMarker()))
        throw Refused(QStringLiteral("Λείπει το αρχείο χρήσης %1. Ανοίξτε το βιβλίο με το πρόγραμμα: ο διαχειριστής το"
                                     " επαναφέρει με το ξεκλείδωμα της βάσης. Δεν έγινε τίποτα.")
                          .arg(files.usageMarker()));
    if (const auto holder = marker.guardChange())
        throw Refused(QStringLiteral("Το βιβλίο χρησιμοποιείται από τον χρήστη %1 στον υπολογιστή %2. Κλείστε το"
                                     " πρόγραμμα εκεί και δοκιμάστε ξανά. Αν κανείς δεν δουλεύει στο βιβλίο, ο"
                                     " διαχειριστής το ξεκλειδώνει από το πρόγραμμα. Δεν έγινε τίποτα.")
                          .arg(holder->user, holder->computer));
    if (!marker.owns())
        throw Refused(QStringLiteral("Το αρχείο χρήσης %1 δεν έχει έγκυρο περιεχόμενο. Ο διαχειριστής το επαναφέρει"
                                     " με το ξεκλείδωμα της βάσης από το πρόγραμμα. Δεν έγινε τίποτα.")
                          .arg(files.usageMarker()));
}

} // namespace

/// Waits on a thread of its own for a signal, where everything is allowed that the release needs.
class ClaimedMarker::SignalWatch {
public:
    explicit SignalWatch(UsageMarker& marker)
        : m_marker(marker)
    {
        if (::pipe2(m_pipe.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        m_outerPipe = std::exchange(signalPipe, m_pipe[1]);
        m_thread = std::thread(&SignalWatch::wait, this);
        struct sigaction watched { };
        watched.sa_handler = onSignal;
        watched.sa_flags = SA_RESTART;
        for (std::size_t i = 0; i < endingSignals.size(); ++i) {
            ::sigaction(endingSignals[i], nullptr, &m_before[i]);
            if (m_before[i].sa_handler != SIG_IGN)
                ::sigaction(endingSignals[i], &watched, nullptr);
        }
    }
    ~SignalWatch()
    {
        tell(m_pipe[1], noSignal);
        m_thread.join();
        for (std::size_t i = 0; i < endingSignals.size(); ++i)
            ::sigaction(endingSignals[i], &m_before[i], nullptr);
        signalPipe = m_outerPipe;
        for (const int end : m_pipe)
            ::close(end);
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    void claim(const BookFiles& files)
    {
        const std::lock_guard lock(m_mutex);
        claimFree(m_marker, files);
    }

    /// For good: a claim that a signal has overtaken claims nothing any more.
    void release() noexcept
    {
        const std::lock_guard lock(m_mutex);
        try {
            m_marker.retire();
        } catch (const std::exception&) {
            // The marker's file has gone or fails: the administrator's unlock is left.
        }
    }

private:
    void wait()
    {
        char number = noSignal;
        while (::read(m_pipe[0], &number, 1) < 0 && errno == EINTR) { }
        if (number == noSignal)
            return;
        release();
        endBySignal(number);
    }

    UsageMarker& m_marker;
    std::mutex m_mutex;
    std::array<int, 2> m_pipe{-1, -1};
    int m_outerPipe = -1;
    std::array<struct sigaction, endingSignals.size()> m_before{};
    std::thread m_thread;
};

ClaimedMarker::ClaimedMarker(const BookFiles& files)
    : m_marker(files.usageMarker(), machineIdentity())
    , m_watch(std::make_unique<SignalWatch>(m_marker)) // before the claim, so that no signal falls between
{
    m_watch->claim(files);
}

ClaimedMarker::~ClaimedMarker()
{
    m_watch->release();
}

} // namespace lorvan

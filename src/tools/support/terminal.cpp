#include "support/terminal.h"

#include "platform/work.h"

#include <QStringDecoder>

#include <array>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace lorvan {
namespace {

/// Turns off the echo of typed characters and restores the terminal however the program continues or ends.
class HiddenTyping {
public:
    HiddenTyping()
    {
        tcgetattr(STDIN_FILENO, &s_before);
        struct sigaction ending { };
        ending.sa_handler = giveBackAndEnd;
        for (std::size_t i = 0; i < endingSignals.size(); ++i)
            sigaction(endingSignals[i], &ending, &m_before[i]);
        termios hidden = s_before;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        hidden.c_lflag |= ECHONL;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenTyping()
    {
        giveBack();
        for (std::size_t i = 0; i < endingSignals.size(); ++i)
            sigaction(endingSignals[i], &m_before[i], nullptr);
    }
    HiddenTyping(const HiddenTyping&) = delete;
    HiddenTyping& operator=(const HiddenTyping&) = delete;

private:
    static constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

    static void giveBack() { tcsetattr(STDIN_FILENO, TCSANOW, &s_before); }
    static void giveBackAndEnd(int signal)
    {
        giveBack();
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }

    static inline termios s_before{};
    std::array<struct sigaction, endingSignals.size()> m_before{};
};

QString readLine()
{
    std::string line;
    std::getline(std::cin, line);
    if (line.ends_with('\r'))
        line.pop_back();
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(QByteArray::fromStdString(line));
    if (decode.hasError())
        throw Refused(QStringLiteral("Ο κωδικός δεν είναι κείμενο UTF-8."));
    return text;
}

QString askHidden(const QString& prompt)
{
    const HiddenTyping hidden;
    std::cerr << prompt.toStdString() << std::flush;
    return readLine();
}

} // namespace

QString askNewPassword(const QString& user)
{
    if (isatty(STDIN_FILENO) == 0)
        return readLine();
    const QString password = askHidden(QStringLiteral("Κωδικός για τον χρήστη %1: ").arg(user));
    if (password != askHidden(QStringLiteral("Ξανά ο ίδιος κωδικός: ")))
        throw Refused(QStringLiteral("Οι δύο κωδικοί διαφέρουν. Δεν έγινε τίποτα."));
    return password;
}

int errorTerminalColumns()
{
    constexpr int usualColumns = 80;
    winsize size{};
    if (isatty(STDERR_FILENO) == 0)
        return 0;
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualColumns;
}

} // namespace lorvan

#include "main/open_days_watch.h"

#include "book/book.h"
#include "platform/engine/sql_error.h"

#include <chrono>

namespace lorvan {

using namespace std::chrono_literals;

OpenDaysWatch::OpenDaysWatch(Book& book, Clock clock)
    : m_book(book)
    , m_clock(std::move(clock))
{
    m_minute.setObjectName(QStringLiteral("minute"));
    connect(&m_minute, &QTimer::timeout, this, [this] {
        if (m_clock.today() != m_lookedOn)
            look();
    });
    m_minute.start(1min);
}

void OpenDaysWatch::look()
{
    const QDate today = m_clock.today();
    m_lookedOn = {};
    try {
        const OpenDays open = forgottenDays(m_book.main(), m_book.auxiliary(), today);
        m_lookedOn = today;
        Q_EMIT counted(open);
    } catch (const SqlError&) {
        // The next look may succeed.
    }
}

} // namespace lorvan

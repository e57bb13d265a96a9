#include "platform/work_pace.h"

#include <algorithm>

namespace lorvan {

using namespace std::chrono_literals;

namespace {

constexpr auto silence = 3s;
constexpr auto betweenTexts = 1s;
constexpr qint64 leastShare = 50; ///< One part in so many must be done.

qint64 roundedUp(qint64 number, qint64 step)
{
    return (number + step - 1) / step * step;
}

QString counted(qint64 number, const QString& one, const QString& many)
{
    return QStringLiteral("περίπου %1 %2").arg(number).arg(number == 1 ? one : many);
}

} // namespace

QString roughDuration(std::chrono::seconds duration)
{
    const qint64 seconds = duration.count();
    if (seconds <= 5)
        return QStringLiteral("λίγα δευτερόλεπτα");
    if (seconds <= 50)
        return QStringLiteral("περίπου %1 δευτερόλεπτα").arg(roundedUp(seconds, 10));
    if (seconds <= 60 * 60)
        return counted(roundedUp(seconds, 60) / 60, QStringLiteral("λεπτό"), QStringLiteral("λεπτά"));
    return counted(roundedUp(seconds, 60 * 60) / (60 * 60), QStringLiteral("ώρα"), QStringLiteral("ώρες"));
}

void WorkPace::note(qint64 done, qint64 whole, Time now)
{
    if (done < m_done || whole != m_whole || m_begun == Time()) {
        m_before = done;
        m_begun = now;
        m_told = now;
        m_text.clear();
    }
    m_done = done;
    m_whole = whole;
    if (now - m_told < betweenTexts)
        return;
    m_told = now;
    m_text = estimate(std::chrono::duration_cast<std::chrono::milliseconds>(now - m_begun));
}

std::optional<int> WorkPace::percent() const
{
    if (m_whole <= 0)
        return std::nullopt;
    const double part = static_cast<double>(m_done) / static_cast<double>(m_whole);
    return static_cast<int>(std::clamp(part, 0.0, 1.0) * 100);
}

QString WorkPace::advance() const
{
    const auto share = percent();
    if (!share)
        return {};
    const QString text = QStringLiteral("%1%").arg(*share);
    return m_text.isEmpty() ? text : text + QStringLiteral(", ") + m_text;
}

QString WorkPace::estimate(std::chrono::milliseconds elapsed) const
{
    const qint64 made = m_done - m_before;
    const qint64 left = m_whole - m_done;
    if (elapsed < silence || left <= 0 || made <= 0 || made < m_whole / leastShare)
        return {};
    const double milliseconds =
        static_cast<double>(elapsed.count()) * static_cast<double>(left) / static_cast<double>(made);
    return QStringLiteral("ακόμη ") + roughDuration(std::chrono::seconds(static_cast<qint64>(milliseconds / 1000) + 1));
}

} // namespace lorvan

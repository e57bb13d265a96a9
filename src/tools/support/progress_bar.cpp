#include "support/progress_bar.h"

#include "support/command.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr int all = 100;
constexpr int longestBar = 40;
constexpr auto eraseLine = "\r\x1b[K";

int percentOf(std::int64_t done, std::int64_t whole)
{
    const double part = whole > 0 ? static_cast<double>(done) / static_cast<double>(whole) : 0;
    return static_cast<int>(std::clamp(part, 0.0, 1.0) * all);
}

} // namespace

ProgressBar::ProgressBar(const ToolContext& context, QString label, std::chrono::milliseconds interval)
    : m_out(context.errors)
    , m_label(std::move(label))
    , m_columns(context.progressColumns)
    , m_interval(interval)
    , m_next(std::chrono::steady_clock::now() + interval)
{
}

ProgressBar::~ProgressBar()
{
    if (m_drawn)
        m_out << eraseLine << std::flush;
}

void ProgressBar::show(std::int64_t done, std::int64_t whole)
{
    if (m_columns == 0)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now < m_next)
        return;
    m_next = now + m_interval;
    draw(percentOf(done, whole));
}

void ProgressBar::draw(int percent)
{
    const QString figure = QStringLiteral(" %1%").arg(percent, 3);
    const qsizetype room = m_columns - 1 - figure.size(); // a full last column would make some terminals wrap
    const QString label = m_label.left(std::max<qsizetype>(room, 0));
    const int width = std::min<int>(static_cast<int>(room - label.size()) - 3, longestBar);
    QString bar;
    if (width > 0) {
        const int filled = width * percent / all;
        bar = QStringLiteral(" [%1%2]").arg(QString(filled, u'#'), QString(width - filled, u'.'));
    }
    m_out << eraseLine << (label + bar + figure).toStdString() << std::flush;
    m_drawn = true;
}

} // namespace lorvan

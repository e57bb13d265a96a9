#include "support/progress_bar.h"

#include "support/command.h"
#include "support/interruption.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr int all = 100;
constexpr int longestBar = 40;
constexpr int shortestBar = 10; // beside a time
constexpr int besideBar = 3; // blank and brackets
constexpr auto eraseLine = "\r\x1b[K";

} // namespace

ProgressBar::ProgressBar(const ToolContext& context, QString label, std::chrono::milliseconds interval)
    : m_out(context.errors)
    , m_label(std::move(label))
    , m_columns(context.progressColumns)
    , m_interval(interval)
    , m_next(std::chrono::steady_clock::now() + interval)
    , m_watch([this](const QString& activity) { begin(activity); }, [this] { return decide(); })
{
}

ProgressBar::~ProgressBar()
{
    if (m_drawn)
        m_out << eraseLine << std::flush;
    Interruption::countAgain();
}

void ProgressBar::show(std::int64_t done, std::int64_t whole)
{
    if (m_columns == 0)
        return;
    const auto now = std::chrono::steady_clock::now();
    m_pace.note(done, whole, now);
    if (now < m_next)
        return;
    m_next = now + m_interval;
    draw();
}

bool ProgressBar::decide()
{
    if (!Interruption::ignoreFromNow())
        return false;
    begin(QStringLiteral("Ολοκληρώνεται και δεν διακόπτεται πια…"));
    return true;
}

void ProgressBar::begin(const QString& label)
{
    m_label = label;
    if (m_drawn)
        draw();
}

void ProgressBar::draw()
{
    const QString line = progressLine(m_label, m_pace.percent(), m_pace.timeLeft(), m_columns);
    m_out << eraseLine << line.toStdString() << std::flush;
    m_drawn = true;
}

QString progressLine(const QString& label, std::optional<int> percent, const QString& timeLeft, int columns)
{
    const qsizetype whole = columns - 1; // a full last column would make some terminals wrap
    if (!percent)
        return label.left(whole);
    QString figure = QStringLiteral(" %1%").arg(*percent, 3);
    if (const QString time = QStringLiteral(", ") + timeLeft;
        !timeLeft.isEmpty() && label.size() + besideBar + shortestBar + figure.size() + time.size() <= whole)
        figure += time;
    const qsizetype room = whole - figure.size();
    const QString shown = label.left(std::max<qsizetype>(room, 0));
    const int width = std::min<int>(static_cast<int>(room - shown.size()) - besideBar, longestBar);
    QString bar;
    if (width > 0) {
        const int filled = width * *percent / all;
        bar = QStringLiteral(" [%1%2]").arg(QString(filled, u'#'), QString(width - filled, u'.'));
    }
    return shown + bar + figure;
}

} // namespace lorvan

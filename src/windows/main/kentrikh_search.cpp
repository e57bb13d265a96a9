#include "main/kentrikh.h"
#include "reports/search_report.h"
#include "search/search_window.h"

#include <QShortcut>

namespace lorvan {

void Kentrikh::addSearchKey()
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, m_gate.quick(this, &Kentrikh::openSearch));
}

void Kentrikh::openSearch()
{
    const auto show = [this](QDate day, qint64 key, QWidget* window) { showMovement(day, key, window); };
    const auto copy = [this](qint64 key, bool toToday, QWidget* window) {
        copyMovement(key, toToday ? CopyDay::Today : CopyDay::Shown, window);
    };
    const auto card = [this](qint32 code) { openCard(code); };
    const auto picture = [this] { openPicture(); };
    const auto print = [this](const SearchQuery& query, QWidget* window) {
        const auto build = [query, heading = m_settings.heading](
                               const BookFiles& files, KeyRing& keys, const ReportProgress& progress) {
            return buildSearchReport(query, heading, files, keys, progress);
        };
        m_reports.print({QStringLiteral("Αναζήτηση"), QStringLiteral("Αναζήτηση"), build}, window);
    };
    if (!m_search)
        m_search = std::make_unique<SearchWindow>(BookFiles(m_settings.dataFolder), m_keys, m_clock,
            SearchWindow::Requests{show, copy, card, picture, print}, this);
    m_search->present();
}

} // namespace lorvan

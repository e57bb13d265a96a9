#include "cashbook/movement_entry_page.h"
#include "controls/main_controls.h"
#include "journal/journal.h"
#include "journal/journal_window.h"
#include "main/kentrikh.h"
#include "reports/journal_report.h"

#include <QShortcut>

namespace lorvan {

void Kentrikh::addHistoryKey()
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_H), this);
    connect(shortcut, &QShortcut::activated, this, m_gate.quick(this, &Kentrikh::openHistory));
}

void Kentrikh::openHistory()
{
    const auto print = [this](const JournalFilter& filter, QWidget* window) {
        const auto build = [filter, heading = m_settings.heading](
                               const BookFiles& files, KeyRing& keys, const ReportProgress& progress) {
            return buildJournalReport(filter, heading, files, keys, progress);
        };
        m_reports.print({QStringLiteral("Ιστορικό"), QStringLiteral("Ιστορικό"), build}, window);
    };
    if (!m_history)
        m_history = std::make_unique<JournalWindow>(BookFiles(m_settings.dataFolder), m_keys, m_clock, print, this);
    const auto movement = m_tab == tab::cashBook ? m_entryPage->chosenMovement() : std::nullopt;
    m_history->present(movement ? journal_subject::movement(*movement) : QString());
}

} // namespace lorvan

#include "cashbook/movement_entry_page.h"
#include "controls/key_binding.h"
#include "controls/main_controls.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "platform/date_text.h"
#include "reports/key_sheet.h"

#include <QAction>
#include <QApplication>

namespace lorvan {

void Kentrikh::addReportKeys()
{
    bindKeys(KeyUse::PreviewDay, this, Qt::WindowShortcut, [this] {
        if (m_tab == tab::cashBook && !QApplication::activePopupWidget())
            m_gate.run([this] { previewDay(); });
    });
    const auto openSheet = [this] { m_gate.run([this] { previewKeys(); }); };
    bindKeys(KeyUse::KeySheet, this, Qt::ApplicationShortcut, openSheet);
    const QString entry = QStringLiteral("Πλήκτρα\t") + keysText(keyEntry(KeyUse::KeySheet));
    connect(m_band->tools()->add(QStringLiteral("keys"), entry), &QAction::triggered, this, openSheet);
}

/// Nothing of the printing page is touched, and the marker stays where it is.
void Kentrikh::previewDay()
{
    if (!settle())
        return;
    const ReportEntry& entry = reportCatalogue().front();
    ReportRequest request{entry.report, entry.title(), {}};
    request.inputs.start = request.inputs.end = m_entryPage->day();
    request.inputs.startText = request.inputs.endText = dateText(m_entryPage->day());
    request.inputs.heading = m_settings.heading;
    m_reports.print(std::move(request), this);
}

void Kentrikh::previewKeys()
{
    const QString title = QStringLiteral("Πλήκτρα");
    const auto build = [heading = m_settings.heading](
                           const BookFiles&, KeyRing&, const ReportProgress&) { return keySheet(heading); };
    m_sheets.print({title, title, build}, this);
}

} // namespace lorvan

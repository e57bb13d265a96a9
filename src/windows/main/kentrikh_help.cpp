#include "book/version.h"
#include "controls/key_binding.h"
#include "controls/main_controls.h"
#include "help/help_window.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "platform/files/settings_store.h"

#include <QAction>
#include <QApplication>

namespace lorvan {
namespace {

/// The chapter of the manual about a window beside the main one; empty for every other.
QString chapterOfWindow(const QWidget* window)
{
    const QString name = window ? window->objectName() : QString();
    if (name == QStringLiteral("journal"))
        return QStringLiteral("Ιστορικό");
    if (name == QStringLiteral("search"))
        return QStringLiteral("Αναζήτηση");
    if (name == QStringLiteral("picture") || name == QStringLiteral("card"))
        return QStringLiteral("Η εικόνα του βιβλίου και η καρτέλα κωδικού");
    if (name == QStringLiteral("Ektypvsh"))
        return QStringLiteral("Η προεπισκόπηση");
    return {};
}

QString chapterOfTab(int shown)
{
    if (shown == tab::codes)
        return QStringLiteral("Κωδικοί κινήσεων");
    return shown == tab::printing ? QStringLiteral("Εκτυπώσεις") : QStringLiteral("Η ημέρα");
}

} // namespace

void Kentrikh::connectHelp()
{
    bindKeys(KeyUse::Manual, this, Qt::ApplicationShortcut, [this] { openManual(); });
    const QString entry = QStringLiteral("Οδηγίες\t") + keysText(keyEntry(KeyUse::Manual));
    connect(m_band->tools()->add(QStringLiteral("manual"), entry), &QAction::triggered, this, &Kentrikh::openManual);
}

/// Program and book, as whoever is asked for help wants to know them.
void Kentrikh::connectAbout()
{
    const QString title = QStringLiteral("Πληροφορίες");
    const QAction* const about = m_band->tools()->add(QStringLiteral("about"), title);
    connect(about, &QAction::triggered, this, [this, title] {
        openTool([this, title] {
            const QStringList details{QStringLiteral("Βιβλίο: ") + m_settings.dataFolder,
                QStringLiteral("Ρυθμίσεις: ") + SettingsStore().path(),
                QStringLiteral("Qt %1").arg(QLatin1String(qVersion()))};
            showMessage(this, QMessageBox::Information, title,
                QStringLiteral("Lorvan, έκδοση %1").arg(programVersion()), details.join(u'\r'));
        });
    });
}

/// At the chapter of the window or page that the user is on.
void Kentrikh::openManual()
{
    const QString ofWindow = chapterOfWindow(QApplication::activeWindow());
    const QString chapter = ofWindow.isEmpty() ? chapterOfTab(m_tab) : ofWindow;
    if (!m_help) {
        const auto print = [this](QWidget* window) {
            const auto build = [](const BookFiles&, KeyRing&, const ReportProgress&) { return manualDocument(); };
            m_sheets.print({QStringLiteral("Οδηγίες"), QStringLiteral("Οδηγίες"), build}, window);
        };
        m_help = std::make_unique<HelpWindow>(print, this);
    }
    m_help->present(chapter);
}

} // namespace lorvan

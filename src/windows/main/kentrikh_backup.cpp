#include "main/backup_now_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"

#include <QAction>

namespace lorvan {

void Kentrikh::connectBackup()
{
    const QAction* const now = m_band->tools()->add(QStringLiteral("backUp"), QStringLiteral("Αντίγραφο τώρα…"));
    connect(now, &QAction::triggered, this, [this] { openTool([this] { backUpNow(); }); });
}

void Kentrikh::backUpNow()
{
    BackupNowWindow window(BookFiles(m_settings.dataFolder), m_keys, m_clock, this);
    connect(&window, &BackupNowWindow::made, &m_notices, &MainNotices::lookAtBackups);
    window.exec();
}

} // namespace lorvan

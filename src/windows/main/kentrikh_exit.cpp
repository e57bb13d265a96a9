#include "cashbook/movement_entry_page.h"
#include "controls/guarded_window.h"
#include "journal/journal_window.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>

namespace lorvan {

bool Kentrikh::confirmExit()
{
    return askOkCancel(this, QMessageBox::Question, QStringLiteral("Εξοδος από το πρόγραμμα"),
        QStringLiteral("Να τερματιστεί το πρόγραμμα;"), unsavedEntryText(m_entryPage->unsaved()));
}

void Kentrikh::leave()
{
    if (confirmExit())
        end();
}

void Kentrikh::offerBooks()
{
    const QAction* const books = m_band->tools()->add(QStringLiteral("books"), QStringLiteral("Βιβλία…"));
    const auto leaveForBooks = [this] {
        m_leadsToBooks = confirmExit();
        if (m_leadsToBooks)
            end();
    };
    connect(books, &QAction::triggered, this, [this, leaveForBooks] { openTool(leaveForBooks); });
}

void Kentrikh::end()
{
    m_isEnding = true;
    close();
}

void Kentrikh::askToEnd()
{
    if (!m_closed && !QApplication::activeModalWidget())
        leave();
}

void Kentrikh::closeEvent(QCloseEvent* event)
{
    if (!m_isEnding && !m_session.isUnderWay() && m_entryPage->unsaved() != UnsavedEntry::None) {
        event->ignore(); // a signal to end must find no window that is closing already
        QMetaObject::invokeMethod(this, &Kentrikh::askToEnd, Qt::QueuedConnection);
        return;
    }
    hideTools();
    m_reports.close();
    m_sheets.close();
    m_toolRun.cancel();
    m_backup.retire();
    m_notices.retire();
    m_openDays.retire();
    m_balances.retire();
    m_sealing.retire();
    m_closed = true;
    guarded(this, [this] { m_marker.retire(); }); // the program ends all the same
    event->accept();
    Q_EMIT closed();
}

} // namespace lorvan

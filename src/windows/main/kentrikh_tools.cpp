#include "cashbook/cash_closing.h"
#include "cashbook/movement_entry_page.h"
#include "controls/main_controls.h"
#include "main/kentrikh.h"
#include "main/open_days_list.h"
#include "main/tab_band.h"

#include <QTabBar>

namespace lorvan {

void Kentrikh::connectTools()
{
    connect(&m_openDays, &OpenDaysWatch::counted, &m_notices, &MainNotices::tellOpenDays);
    connect(m_entryPage, &MovementEntryPage::dayClosed, &m_openDays, &OpenDaysWatch::look);
    connect(&m_notices, &MainNotices::followed, this, &Kentrikh::followNotice);
}

void Kentrikh::followNotice(NoticeKind kind)
{
    if (kind == NoticeKind::OpenDays)
        m_gate.runWindow([this] { return settle(); }, [this] { listOpenDays(); });
}

void Kentrikh::listOpenDays()
{
    OpenDaysList list(listOpenDaysBefore(m_book.main(), m_book.auxiliary(), m_clock.today()), this);
    list.exec();
    if (const auto day = list.chosen())
        goToDay(*day);
}

/// On another page the tab is changed first, with the checks of that page.
void Kentrikh::goToDay(QDate day)
{
    m_band->tabs()->setCurrentIndex(tab::cashBook);
    if (m_tab == tab::cashBook && !m_closed && m_entryPage->leaveAll() && !m_closed)
        m_entryPage->goTo(day);
}

} // namespace lorvan

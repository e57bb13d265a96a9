#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "lists/table_list.h"
#include "look/focus_rules.h"
#include "platform/date_text.h"
#include "search/recent_searches.h"
#include "search/search_model.h"
#include "search/search_window.h"

#include <QKeyEvent>
#include <QMenu>

namespace lorvan {

bool SearchWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isTaken = watched == m_field ? keyInField(key) : keyInList(key);
    return isTaken || QDialog::eventFilter(watched, event);
}

/// Enter goes into the list and not to the first movement, which may not be the one yet.
bool SearchWindow::keyInField(const QKeyEvent& event)
{
    const bool isDown = event.key() == Qt::Key_Down && event.modifiers() == Qt::NoModifier;
    if (!isDown && !isEnter(event))
        return false;
    goIntoList();
    return true;
}

bool SearchWindow::keyInList(const QKeyEvent& event)
{
    if (isEnter(event) || event.key() == Qt::Key_F2) {
        if (!event.isAutoRepeat())
            m_go->click();
        return true;
    }
    if (event.key() == Qt::Key_Up && m_list->currentIndex().row() <= 0) {
        m_field->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

void SearchWindow::goIntoList()
{
    if (m_model->rowCount() == 0)
        return;
    if (!m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_model->index(0, 0));
    m_list->setFocus(Qt::OtherFocusReason);
}

void SearchWindow::goToMovement()
{
    const QModelIndex current = m_list->currentIndex();
    if (!current.isValid())
        return;
    remember();
    const SearchHit& hit = m_model->hit(current.row());
    m_requests.show(dateFromStored(hit.day), hit.key, this);
}

void SearchWindow::showCard()
{
    const QModelIndex current = m_list->currentIndex();
    if (current.isValid())
        m_requests.card(m_model->hit(current.row()).code);
}

void SearchWindow::copyMovement(bool toToday)
{
    const QModelIndex current = m_list->currentIndex();
    if (!current.isValid())
        return;
    remember();
    m_requests.copy(m_model->hit(current.row()).key, toToday, this);
}

void SearchWindow::print()
{
    remember();
    m_requests.print(m_query, this);
}

void SearchWindow::offerRecent()
{
    QMenu menu(this);
    try {
        for (const QString& text : RecentSearches().list()) {
            QString shown = text;
            menu.addAction(shown.replace(u'&', QStringLiteral("&&")))->setData(text);
        }
    } catch (const SettingsError&) {
        // As if there were none.
    }
    if (menu.isEmpty())
        menu.addAction(QStringLiteral("Καμία ακόμη"))->setEnabled(false);
    menu.setActiveAction(menu.actions().constFirst());
    const QAction* const chosen = menu.exec(m_recent->mapToGlobal(QPoint(0, m_recent->height())));
    if (!chosen)
        return;
    m_field->setText(chosen->data().toString());
    m_field->setFocus(Qt::OtherFocusReason);
}

/// Where the settings cannot be written, it is forgotten.
void SearchWindow::remember()
{
    try {
        RecentSearches().remember(m_field->text());
    } catch (const SettingsError&) {
        return;
    }
}

void SearchWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    m_reader.cancel();
    if (m_model->rowCount() > 0)
        remember();
}

void SearchWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    searchAgain();
}

/// Escape closes the window.
void SearchWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan

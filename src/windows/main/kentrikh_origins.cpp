#include "cashbook/movement_entry_page.h"
#include "controls/guarded_window.h"
#include "controls/main_controls.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "preview/ektypvsh.h"

#include <QShortcut>
#include <QTabBar>

namespace lorvan {
namespace {

constexpr std::size_t mostOrigins = 20;

const QString attention = QStringLiteral("Προσοχή");
const QString isGone = QStringLiteral("Η κίνηση δεν υπάρχει πια.");

} // namespace

void Kentrikh::addBackKey()
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, &Kentrikh::goBack);
}

bool Kentrikh::mayLeaveDay(QWidget* asking)
{
    if (m_entryPage->isLoaded()) {
        showMessage(asking, QMessageBox::Information, attention,
            QStringLiteral("Μια κίνηση είναι ανοικτή για μεταβολή ή διαγραφή. Τελειώστε πρώτα με αυτή."));
        return false;
    }
    if (settle())
        return true;
    if (asking != this)
        asking->hide(); // it covers the field that was refused
    return false;
}

void Kentrikh::showMovement(QDate day, std::optional<qint64> key, QWidget* from)
{
    m_gate.runWindow([this, from] { return mayLeaveDay(from); }, [=, this] { goToMovement(day, key, from); });
}

void Kentrikh::copyMovement(qint64 key, CopyDay copyDay, QWidget* from)
{
    m_gate.runWindow([this] { return settle(); },
        [=, this] {
            const auto movement = findMovement(m_book.main(), key);
            const QDate day = copyDay == CopyDay::Today ? m_clock.today() : m_entryPage->day();
            if (!movement)
                showMessage(from, QMessageBox::Information, attention, isGone);
            else if (leaveFor(day, from))
                m_entryPage->copyIntoEntry(*movement, day);
        });
}

/// On another page the tab is changed first, with the checks of that page.
bool Kentrikh::leaveFor(QDate day, QWidget* from)
{
    const int tabBefore = m_tab;
    m_band->tabs()->setCurrentIndex(tab::cashBook);
    if (m_tab != tab::cashBook || m_closed || !m_entryPage->leaveAll() || m_closed)
        return false;
    if (m_origins.size() == mostOrigins)
        m_origins.erase(m_origins.begin());
    m_origins.push_back({from, m_entryPage->day(), day, tabBefore});
    from->hide();
    activateWindow();
    return true;
}

void Kentrikh::goToMovement(QDate day, std::optional<qint64> key, QWidget* from)
{
    if (!leaveFor(day, from))
        return;
    if (!key)
        m_entryPage->goTo(day);
    else if (!m_entryPage->showMovement(day, *key))
        showMessage(this, QMessageBox::Information, attention, isGone);
}

void Kentrikh::followLine(const RowSubject& subject, QWidget* preview)
{
    if (subject.kind == RowSubject::Kind::Code)
        return openCard(static_cast<qint32>(subject.number));
    if (subject.kind == RowSubject::Kind::Day)
        return showMovement(dateFromStored(subject.number), std::nullopt, preview);
    guarded(preview, [&] {
        if (const auto movement = findMovement(m_book.main(), subject.number))
            showMovement(movement->day, movement->key, preview);
        else
            showMessage(preview, QMessageBox::Information, attention, isGone);
    });
}

/// The day and tab that were shown before come back only if the user has not gone on to others.
void Kentrikh::goBack()
{
    if (m_origins.empty())
        return;
    const auto lead = [this] {
        const Origin origin = m_origins.back();
        if (m_tab == tab::cashBook && m_entryPage->day() == origin.shown && origin.day != origin.shown) {
            goToDay(origin.day);
            if (m_entryPage->day() != origin.day || m_closed)
                return;
        }
        m_origins.pop_back();
        if (m_tab == tab::cashBook && m_entryPage->day() == origin.day)
            m_band->tabs()->setCurrentIndex(origin.tab);
        if (m_closed)
            return;
        const auto* const preview = qobject_cast<Ektypvsh*>(origin.window.data());
        if (!origin.window || (preview && !preview->isOpen()))
            return;
        origin.window->show();
        origin.window->raise();
        origin.window->activateWindow();
    };
    m_gate.runWindow([this] { return mayLeaveDay(this); }, lead);
}

} // namespace lorvan

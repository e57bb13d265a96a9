#include "cashbook/movement_entry_page.h"
#include "codes/codes_page.h"
#include "controls/key_binding.h"
#include "controls/main_controls.h"
#include "figures/card_window.h"
#include "figures/picture_window.h"
#include "help/help_window.h"
#include "journal/journal_window.h"
#include "look/message_window.h"
#include "main/kentrikh.h"
#include "main/tab_band.h"
#include "main/tools_button.h"
#include "search/search_window.h"

#include <QAction>

namespace lorvan {

void Kentrikh::connectFigures()
{
    ToolsButton* const tools = m_band->tools();
    const QAction* const picture = tools->add(
        QStringLiteral("picture"), QStringLiteral("Εικόνα του βιβλίου\t") + keysText(keyEntry(KeyUse::Picture)));
    connect(picture, &QAction::triggered, this, m_gate.quick(this, &Kentrikh::openPicture));
    const QAction* const card =
        tools->add(QStringLiteral("card"), QStringLiteral("Καρτέλα κωδικού\t") + keysText(keyEntry(KeyUse::Card)));
    connect(card, &QAction::triggered, this, m_gate.quick(this, &Kentrikh::openCardOfChosen));
    bindKeys(KeyUse::Picture, this, Qt::WindowShortcut, m_gate.quick(this, &Kentrikh::openPicture));
    bindKeys(KeyUse::Card, this, Qt::WindowShortcut, m_gate.quick(this, &Kentrikh::openCardOfChosen));
}

void Kentrikh::openPicture()
{
    if (!m_picture) {
        const auto print = [this](const PictureRequest& request, QWidget* window) {
            const auto build = [request, heading = m_settings.heading](
                                   const BookFiles& files, KeyRing& keys, const ReportProgress& progress) {
                return buildPictureDocument(request, heading, files, keys, progress);
            };
            m_reports.print(
                {QStringLiteral("Εικόνα του βιβλίου"), QStringLiteral("Εικόνα του βιβλίου"), build}, window);
        };
        m_picture = std::make_unique<PictureWindow>(BookFiles(m_settings.dataFolder), m_keys, m_clock, print, this);
        connect(m_picture.get(), &PictureWindow::dayChosen, this,
            [this](QDate day) { showMovement(day, std::nullopt, m_picture.get()); });
        connect(m_picture.get(), &PictureWindow::codeChosen, this, &Kentrikh::openCard);
    }
    m_picture->present();
}

void Kentrikh::openCardOfChosen()
{
    const auto code = m_tab == tab::codes ? m_codesPage->shownCode() : m_entryPage->chosenCode();
    if (code)
        openCard(*code);
    else
        showMessage(this, QMessageBox::Information, QStringLiteral("Καρτέλα κωδικού"),
            QStringLiteral("Διαλέξτε πρώτα έναν κωδικό."));
}

void Kentrikh::openCard(qint32 code)
{
    if (!m_card) {
        m_card = std::make_unique<CardWindow>(BookFiles(m_settings.dataFolder), m_keys, this);
        connect(m_card.get(), &CardWindow::movementChosen, this,
            [this](const Movement& movement) { showMovement(movement.day, movement.key, m_card.get()); });
        connect(m_card.get(), &CardWindow::copyAsked, this, [this](qint64 key, bool toToday) {
            copyMovement(key, toToday ? CopyDay::Today : CopyDay::Shown, m_card.get());
        });
    }
    m_card->present(code);
}

void Kentrikh::hideTools()
{
    if (m_history)
        m_history->hide();
    if (m_search)
        m_search->hide();
    if (m_picture)
        m_picture->hide();
    if (m_card)
        m_card->hide();
    if (m_help)
        m_help->hide();
}

} // namespace lorvan

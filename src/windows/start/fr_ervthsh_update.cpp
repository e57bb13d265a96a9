#include "start/fr_ervthsh_update.h"

#include "book/opening_balance_rules.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "look/busy_pointer.h"
#include "look/message_window.h"
#include "look/window_placement.h"
#include "platform/date_text.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{400, 236};
constexpr int margin = 16;
constexpr int fieldWidth = 140;
constexpr int confirmWidth = 96;

} // namespace

FR_ErvthshUpdate::FR_ErvthshUpdate(Clock clock)
    : m_clock(std::move(clock))
    , m_date(new EntryField(TypingRule::OpeningDate, this))
    , m_amount(new EntryField(TypingRule::OpeningAmount, this))
    , m_confirm(new CommandButton({}, QStringLiteral("ΟΚ"), this))
{
    setObjectName(QStringLiteral("FR_ErvthshUpdate"));
    setWindowTitle(QStringLiteral("Ερώτηση Ταμείου"));
    m_amount->setRightAligned();
    m_confirm->setObjectName(QStringLiteral("Command1"));
    m_confirm->setLook(CommandButton::Look::Solid);
    m_confirm->setMinimumWidth(confirmWidth);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(12);
    rows->addWidget(frame(QStringLiteral("Ποια είναι η τελευταία ημέρα που έχεις ταμείο;"), 0, m_date));
    rows->addWidget(frame(QStringLiteral("Τί ποσό έχεις υπόλοιπο ταμείου;"), 1, m_amount));
    rows->addStretch(1);
    rows->addWidget(m_confirm, 0, Qt::AlignRight);
    sizeWithin(this, firstSize);
    centreOnWorkArea(this);

    connect(m_date, &EntryField::left, this, &FR_ErvthshUpdate::rewriteDate);
    connect(m_amount, &EntryField::left, this, [this] {
        if (m_amount->text().trimmed().isEmpty())
            m_amount->setText(QStringLiteral("0"));
    });
    connect(m_confirm, &CommandButton::clicked, this, &FR_ErvthshUpdate::confirm);
    m_date->setFocus(Qt::OtherFocusReason);
}

QGroupBox* FR_ErvthshUpdate::frame(const QString& title, int index, EntryField* field)
{
    auto* const box = new QGroupBox(title, this);
    box->setObjectName(QStringLiteral("Frame1(%1)").arg(index));
    field->setObjectName(QStringLiteral("Text1(%1)").arg(index));
    field->setAccessibleName(title);
    field->setLeastWidth(fieldWidth);
    auto* const row = new QHBoxLayout(box);
    row->addWidget(field, 0, Qt::AlignLeft);
    return box;
}

void FR_ErvthshUpdate::rewriteDate()
{
    if (const auto day = readDate(m_date->text(), m_clock.today()))
        m_date->setText(dateText(*day));
}

void FR_ErvthshUpdate::confirm()
{
    rewriteDate();
    if (m_amount->text().trimmed().isEmpty())
        m_amount->setText(QStringLiteral("0"));
    const auto reading = readOpeningBalance(m_date->text(), m_amount->text(), m_clock.today());
    if (const auto* const fault = std::get_if<OpeningBalanceFault>(&reading)) {
        if (*fault == OpeningBalanceFault::DateIsInvalid)
            refuse(QStringLiteral("Δώσε σωστά την ημερομηνία"),
                QStringLiteral("Προσοχή στην ημερομηνία Πρέπει να δωθεί π.χ 05-12-2005"), m_date);
        else
            refuse(QStringLiteral("Προσοχή"),
                QStringLiteral("Εισάγετε το ποσό που έχετε υπόλοιπο ταμείου τη παραπάνω ημερομηνία"), m_amount);
        return;
    }
    if (!askYesNo(this, QMessageBox::Question, QStringLiteral("Προσοχή"),
            QStringLiteral("Θα ενημερωθούν τα υπόλοιπα ταμείου με το παραπάνω ποσό. Να συνεχίσω;"), DefaultAnswer::No))
        return;
    m_answer = std::get<OpeningBalance>(reading);
    accept();
}

void FR_ErvthshUpdate::refuse(const QString& title, const QString& text, EntryField* field)
{
    showMessage(this, QMessageBox::Critical, title, text);
    goBackTo(*field);
}

void FR_ErvthshUpdate::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

void FR_ErvthshUpdate::keyPressEvent(QKeyEvent* event)
{
    event->ignore(); // otherwise Escape would close the window
}

OpeningBalanceNotGiven::OpeningBalanceNotGiven()
    : std::runtime_error("the opening balance was not given")
{
}

OpeningBalance askOpeningBalance(const Clock& clock)
{
    const OrdinaryPointer pointer;
    FR_ErvthshUpdate window(clock);
    if (window.exec() != QDialog::Accepted)
        throw OpeningBalanceNotGiven();
    return window.answer();
}

} // namespace lorvan

#include "cashbook/movement_fields.h"

#include "controls/check_field.h"
#include "controls/main_controls.h"
#include "controls/suggesting_field.h"
#include "look/message_window.h"
#include "platform/amount_text.h"
#include "platform/entry_rules.h"

namespace lorvan {
namespace {

AmountReading readField(const QString& text)
{
    if (text.trimmed().isEmpty())
        return {AmountReading::Outcome::Amount, {}};
    return readAmount(text, Precision::Cents);
}

} // namespace

MovementFields::MovementFields(QWidget* page)
    : QObject(page)
    , m_fields(QStringLiteral("Text1"))
    , m_description(new SuggestingField(TypingRule::Capitals, page))
    , m_cheque(new CheckField(QStringLiteral("Επιταγή"), page))
{
    m_fields.add(field::description, m_description);
    m_description->setAccessibleName(QStringLiteral("Περιγραφή"));
    addAmount(page, field::income, QStringLiteral("Εσοδα"));
    addAmount(page, field::expense, QStringLiteral("Εξοδα"));
    addAmount(page, field::memorandum, QStringLiteral("Λ τάξεως"));
    for (const int index : {field::description, field::income, field::expense, field::memorandum})
        watch(index);
    connect(m_cheque, &QCheckBox::clicked, this, [this] { Q_EMIT typed(-1); });
    m_cheque->setObjectName(QStringLiteral("Check1(0)"));
    m_cheque->setToolTip(QStringLiteral("Δίνχνει αν το ποσό προέρχετε από επιταφή"));
}

void MovementFields::watch(int index)
{
    connect(m_fields[index], &EntryField::textEdited, this, [this, index] { Q_EMIT typed(index); });
    connect(m_fields[index], &EntryField::textChanged, this, &MovementFields::changed);
}

void MovementFields::addAmount(QWidget* page, int index, const QString& name)
{
    auto* const amountField = m_fields.add(index, new EntryField(TypingRule::Amount, page));
    amountField->setAccessibleName(name);
    amountField->setRightAligned();
    setAmount(index, {});
}

void MovementFields::setAmount(int index, Currency amount)
{
    m_exact[index] = amount;
    m_fields[index]->setText(amountOrZeroText(amount));
}

std::optional<Currency> MovementFields::amount(int index) const
{
    const QString text = m_fields[index]->text();
    const Currency exact = m_exact.at(index);
    if (text == amountOrZeroText(exact))
        return exact;
    const AmountReading reading = readField(text);
    return reading ? std::optional(reading.amount) : std::nullopt;
}

bool MovementFields::sayIfRefused(int index) const
{
    const QString text = m_fields[index]->text();
    const AmountReading reading = readField(text);
    if (reading)
        return false;
    const bool tooLarge = reading.outcome == AmountReading::Outcome::OutOfRange;
    showMessage(m_fields[index]->window(), QMessageBox::Warning, QStringLiteral("Προσοχή"),
        tooLarge ? QStringLiteral("Το ποσό %1 είναι μεγαλύτερο από όσο μπορεί να κρατήσει το ταμείο.").arg(text)
                 : QStringLiteral("Το ποσό %1 δεν είναι σωστός αριθμός. Γράψτε το όπως 1.234,56").arg(text));
    return true;
}

bool MovementFields::settleAmount(int index)
{
    if (sayIfRefused(index))
        return false;
    setAmount(index, *amount(index));
    return true;
}

bool MovementFields::read(MovementDraft& draft) const
{
    for (const int index : {field::income, field::expense, field::memorandum}) {
        if (sayIfRefused(index)) {
            goBackTo(*m_fields[index]);
            return false;
        }
    }
    draft.description = m_fields[field::description]->text();
    draft.income = *amount(field::income);
    draft.expense = *amount(field::expense);
    draft.memorandum = *amount(field::memorandum);
    draft.cheque = m_cheque->isChecked();
    return true;
}

EntryContent::Amount MovementFields::contentOf(int index) const
{
    return {m_fields[index]->text(), m_exact.at(index)};
}

void MovementFields::takeContent(EntryContent& content) const
{
    content.incomeOpen = m_kind == Kind::Income;
    content.description = m_fields[field::description]->text();
    content.income = contentOf(field::income);
    content.expense = contentOf(field::expense);
    content.memorandum = contentOf(field::memorandum);
    content.cheque = m_cheque->isChecked();
}

void MovementFields::setContent(const EntryContent& content)
{
    m_fields[field::description]->setText(content.description);
    for (const auto& [index, amount] : {std::pair(field::income, content.income),
             std::pair(field::expense, content.expense), std::pair(field::memorandum, content.memorandum)}) {
        m_exact[index] = amount.exact;
        m_fields[index]->setText(amount.text);
    }
    m_cheque->setChecked(content.cheque);
    enableAmount(content.incomeOpen ? Kind::Income : Kind::Expense);
}

void MovementFields::show(const MovementDraft& movement)
{
    m_fields[field::description]->setText(movement.description);
    m_fields[field::description]->setCursorPosition(0); // so that a long one is shown from its beginning
    setAmounts(movement.income, movement.expense);
    setAmount(field::memorandum, movement.memorandum);
    m_cheque->setChecked(movement.cheque);
}

void MovementFields::setAmounts(Currency income, Currency expense)
{
    setAmount(field::income, income);
    setAmount(field::expense, expense);
}

void MovementFields::moveAmountTo(Kind kind)
{
    const auto income = amount(field::income);
    const auto expense = amount(field::expense);
    if (!income || !expense)
        return;
    const Currency sum = *income + *expense;
    setAmounts(kind == Kind::Income ? sum : Currency(), kind == Kind::Income ? Currency() : sum);
}

void MovementFields::clearDescription()
{
    m_fields[field::description]->setText({}); // leaves nothing to undo in the field itself
}

void MovementFields::clearMemorandum()
{
    setAmount(field::memorandum, {});
}

void MovementFields::clearCheque()
{
    m_cheque->setChecked(false);
}

void MovementFields::enableAmount(Kind kind)
{
    m_kind = kind;
    m_fields[field::income]->setEnabled(m_enabled && kind == Kind::Income);
    m_fields[field::expense]->setEnabled(m_enabled && kind == Kind::Expense);
}

void MovementFields::setEnabled(bool enabled)
{
    m_enabled = enabled;
    m_fields[field::description]->setEnabled(enabled);
    m_fields[field::memorandum]->setEnabled(enabled);
    m_cheque->setEnabled(enabled);
    enableAmount(m_kind);
}

} // namespace lorvan

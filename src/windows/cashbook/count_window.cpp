#include "cashbook/count_window.h"

#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRegularExpressionValidator>

namespace lorvan {
namespace {

constexpr QSize firstSize{520, 420};
constexpr int margin = 16;
constexpr int betweenFrames = 12;
constexpr int fieldWidth = 72;
constexpr int buttonWidth = 96;
constexpr qreal sumType = 1.1;

ThemedLabel* amountLabel(const QString& name, QFont::Weight weight = QFont::Normal)
{
    auto* const label = new ThemedLabel({}, ColourRole::Text, weight == QFont::Normal ? 1.0 : sumType, weight);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

} // namespace

CountWindow::CountWindow(QDate day, Currency balance, const CountedCash& known, QWidget* parent)
    : QDialog(parent)
    , m_gate(this)
    , m_balance(balance)
    , m_counted(known)
    , m_sum(amountLabel(QStringLiteral("sum"), QFont::DemiBold))
    , m_difference(amountLabel(QStringLiteral("difference"), QFont::DemiBold))
{
    setObjectName(QStringLiteral("count"));
    setWindowTitle(QStringLiteral("Καταμέτρηση"));
    setModal(true);
    auto* const frames = new QHBoxLayout;
    frames->setSpacing(betweenFrames);
    frames->addWidget(frame(QStringLiteral("Χαρτονομίσματα"), 0, CountedCash::notes), 1, Qt::AlignTop);
    frames->addWidget(frame(QStringLiteral("Κέρματα"), CountedCash::notes, CountedCash::worths.size()), 1);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(betweenFrames);
    rows->addWidget(listHeading(QStringLiteral("Μετρητά της ημέρας ") + dateText(day)));
    rows->addLayout(frames);
    rows->addLayout(totals(balance));
    rows->addStretch(1);
    addButtons(*rows);
    showSums();
    sizeWithin(this, firstSize);
    m_fields.front()->setFocus(Qt::OtherFocusReason);
}

QGroupBox* CountWindow::frame(const QString& title, std::size_t first, std::size_t end)
{
    auto* const box = new QGroupBox(title);
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(2, 1);
    for (std::size_t kind = first; kind < end; ++kind)
        addRow(*grid, static_cast<int>(kind - first), kind);
    return box;
}

void CountWindow::addRow(QGridLayout& grid, int row, std::size_t kind)
{
    static const QRegularExpression upToSixDigits(QStringLiteral("[0-9]{0,6}"));
    auto* const field = m_fields.emplace_back(new EntryField(TypingRule::Any));
    field->setObjectName(QStringLiteral("pieces(%1)").arg(kind));
    field->setValidator(new QRegularExpressionValidator(upToSixDigits, field));
    field->setRightAligned();
    field->setLeastWidth(fieldWidth);
    const QString worth = CountedCash::worthText(kind);
    field->setAccessibleName(QStringLiteral("Τεμάχια των ") + worth);
    if (m_counted.count(kind) != 0)
        field->setText(QString::number(m_counted.count(kind)));
    auto* const caption = new ThemedLabel(worth, ColourRole::Text);
    caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    caption->setBuddy(field);
    auto* const amount = m_amounts.emplace_back(amountLabel(QStringLiteral("amount(%1)").arg(kind)));
    grid.addWidget(caption, row, 0);
    grid.addWidget(field, row, 1);
    grid.addWidget(amount, row, 2);
    connect(field, &EntryField::textChanged, this, [this, kind](const QString& text) {
        m_counted.setCount(kind, text.toLongLong());
        showSums();
    });
}

QGridLayout* CountWindow::totals(Currency balance)
{
    auto* const grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(0, 1);
    ThemedLabel* const books = amountLabel(QStringLiteral("balance"), QFont::DemiBold);
    books->setText(amountText(balance));
    int row = 0;
    for (const auto& [caption, amount] : {std::pair(QStringLiteral("Μετρήθηκαν"), m_sum),
             {QStringLiteral("Υπόλοιπο ταμείου"), books}, {QStringLiteral("Διαφορά"), m_difference}}) {
        grid->addWidget(new ThemedLabel(caption, ColourRole::Text), row, 1, Qt::AlignRight);
        grid->addWidget(amount, row++, 2);
    }
    grid->setColumnMinimumWidth(2, 2 * fieldWidth);
    return grid;
}

void CountWindow::addButtons(QVBoxLayout& rows)
{
    auto* const skip = new CommandButton({}, QStringLiteral("Παράλειψη"));
    skip->setObjectName(QStringLiteral("skip"));
    skip->setToolTip(QStringLiteral("Το φύλλο ετοιμάζεται χωρίς να αλλάξει η καταμέτρηση"));
    skip->setLook(CommandButton::Look::Quiet);
    connect(skip, &CommandButton::clicked, this, &QDialog::accept);
    auto* const keep = new CommandButton({}, QStringLiteral("Συνέχεια"));
    keep->setObjectName(QStringLiteral("keep"));
    keep->setToolTip(QStringLiteral("Η καταμέτρηση φυλάσσεται με τη σφραγίδα και τυπώνεται στο φύλλο"));
    keep->setLook(CommandButton::Look::Solid);
    m_gate.connect(keep, {}, [this] { confirm(); });
    auto* const row = new QHBoxLayout;
    row->addStretch(1);
    for (CommandButton* const button : {keep, skip}) {
        button->setMinimumWidth(buttonWidth);
        row->addWidget(button);
    }
    rows.addLayout(row);
}

void CountWindow::showSums()
{
    for (std::size_t kind = 0; kind < m_amounts.size(); ++kind)
        m_amounts[kind]->setText(m_counted.count(kind) == 0 ? QString() : amountText(m_counted.amount(kind)));
    m_sum->setText(amountText(m_counted.sum()));
    const Currency difference = m_counted.sum() - m_balance;
    m_difference->setText(amountText(difference));
    m_difference->setRole(difference.isZero() ? ColourRole::Text : ColourRole::Warning);
}

void CountWindow::confirm()
{
    if (m_keep(m_counted))
        accept();
}

void CountWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        focusNextPrevChild(event->key() == Qt::Key_Down);
    else
        QDialog::keyPressEvent(event);
}

} // namespace lorvan

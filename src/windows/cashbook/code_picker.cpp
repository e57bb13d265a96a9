#include "cashbook/code_picker.h"

#include "cashbook/code_offer_list.h"
#include "codes/code_offers.h"
#include "controls/code_chooser.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "movements/entry_content.h"
#include "platform/entry_rules.h"

#include <algorithm>
#include <utility>

namespace lorvan {

CodePicker::CodePicker(CodeChooser* chooser)
    : QObject(chooser)
    , m_chooser(chooser)
    , m_offers(new CodeOfferList(chooser))
{
    connect(chooser, &CodeChooser::picked, this, &CodePicker::pick);
    connect(chooser, &CodeChooser::enterPressed, this, &CodePicker::enter);
    connect(chooser, &CodeChooser::typed, this, [this] {
        m_selected = 0;
        offer();
    });
    connect(m_offers, &CodeOfferList::picked, this, [this](qint64 row) { pick(static_cast<int>(row)); });
    connect(chooser, &CodeChooser::shown, m_offers, &QWidget::hide);
}

void CodePicker::setCodes(std::vector<MovementCode> codes)
{
    m_codes = std::move(codes);
    QStringList rows;
    for (const MovementCode& code : m_codes)
        rows += code.listLine;
    m_chooser->setRows(rows);
}

void CodePicker::show(const MovementCode& code)
{
    m_selected = code.code;
    m_income = code.income;
    m_chooser->showText(QString::number(code.code) + u' ' + code.description);
}

void CodePicker::clear()
{
    m_selected = 0;
    m_income = false;
    m_chooser->showText({});
}

void CodePicker::takeContent(EntryContent& content) const
{
    content.chooser = m_chooser->currentText();
    content.code = m_selected;
    content.incomeCode = m_income;
}

void CodePicker::setContent(const EntryContent& content)
{
    m_selected = content.code;
    m_income = content.incomeCode;
    m_chooser->showText(content.chooser);
}

void CodePicker::settle()
{
    if (m_selected != 0)
        return;
    if (const MovementCode* const code = find(readChooser(m_chooser->currentText()).code)) {
        select(*code);
        return;
    }
    m_income = false;
    Q_EMIT unresolved();
}

void CodePicker::offer()
{
    std::vector<ListRow> rows;
    for (const int row : offeredCodes(m_codes, m_chooser->currentText()))
        rows.push_back({m_codes[static_cast<std::size_t>(row)].listLine, row});
    m_offers->offer(rows);
}

void CodePicker::pick(int row)
{
    if (row >= 0 && row < static_cast<int>(m_codes.size()))
        select(m_codes[static_cast<std::size_t>(row)]);
}

void CodePicker::enter()
{
    const ChooserReading reading = readChooser(m_chooser->currentText());
    const MovementCode* const code = find(reading.code);
    if (code) {
        select(*code);
        Q_EMIT entered();
    } else if (reading.kind == ChooserReading::Kind::Number) {
        say(QStringLiteral("Δεν βρέθηκε ο κωδικός της κίνησης"));
    } else {
        const bool empty = reading.kind == ChooserReading::Kind::Empty;
        say(empty ? QStringLiteral("Δεν δώθηκε ο κωδικός της κίνησης")
                  : QStringLiteral("Δεν βρέθηκε ο κωδικός της κίνησης"));
        Q_EMIT notUnderstood();
    }
}

void CodePicker::select(const MovementCode& code)
{
    show(code);
    Q_EMIT chosen();
}

const MovementCode* CodePicker::find(std::optional<qint32> code) const
{
    const auto found =
        std::find_if(m_codes.begin(), m_codes.end(), [code](const auto& each) { return each.code == code; });
    return found == m_codes.end() ? nullptr : &*found;
}

void CodePicker::say(const QString& text)
{
    showMessage(m_chooser->window(), QMessageBox::Information, QStringLiteral("Προσοχη"), text);
    goBackTo(*m_chooser);
}

} // namespace lorvan

#include "preview/printer_choice.h"

#include "controls/command_button.h"
#include "lists/plain_list.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QHBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{440, 300};
constexpr int margin = 16;

QString lineOf(const Printer& printer)
{
    QString line = printer.name;
    for (const QString& words : {printer.description, printer.location}) {
        if (!words.isEmpty() && words != printer.name)
            line += QStringLiteral(" – ") + words;
    }
    return printer.isDefault ? line + QStringLiteral(" (προεπιλογή)") : line;
}

} // namespace

PrinterChoice::PrinterChoice(Printers& printers, QWidget* parent)
    : QDialog(parent)
    , m_printers(printers)
    , m_list(new PlainList)
    , m_confirm(new CommandButton({}, QStringLiteral("ΟΚ")))
{
    setObjectName(QStringLiteral("printerChoice"));
    setWindowTitle(QStringLiteral("Επιλογή εκτυπωτή"));
    setModal(true);
    auto* const heading = listHeading(QStringLiteral("Διαθέσιμοι εκτυπωτές"));
    m_list->setObjectName(QStringLiteral("printers"));
    m_list->setAccessibleName(heading->text());
    m_confirm->setObjectName(QStringLiteral("confirm"));
    m_confirm->setLook(CommandButton::Look::Solid);
    m_confirm->setDefault(true);
    auto* const cancel = new CommandButton({}, QStringLiteral("Άκυρο"));
    cancel->setObjectName(QStringLiteral("cancel"));

    auto* const end = new QHBoxLayout;
    end->setSpacing(8);
    end->addStretch(1);
    end->addWidget(m_confirm);
    end->addWidget(cancel);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(4);
    rows->addWidget(heading);
    rows->addWidget(m_list, 1);
    rows->addSpacing(8);
    rows->addLayout(end);
    sizeWithin(this, firstSize);

    connect(m_confirm, &CommandButton::clicked, this, &PrinterChoice::accept);
    connect(cancel, &CommandButton::clicked, this, &PrinterChoice::reject);
    connect(m_list, &PlainList::opened, this, &PrinterChoice::accept);
    connect(&m_printers, &Printers::answered, this, &PrinterChoice::refill);
    refill();
    m_list->setFocus(Qt::OtherFocusReason);
}

/// The selection is kept as long as its printer exists.
void PrinterChoice::refill()
{
    const QString selected = selectedName();
    m_shown = m_printers.all();
    std::vector<ListRow> rows;
    for (const Printer& each : m_shown)
        rows.push_back({lineOf(each)});
    m_list->setRows(rows);
    for (std::size_t row = 0; row < m_shown.size(); ++row) {
        if (m_shown[row].name == selected)
            m_list->selectRow(m_list->model()->index(static_cast<int>(row), 0));
    }
    m_confirm->setEnabled(!rows.empty());
}

QString PrinterChoice::selectedName() const
{
    const int row = m_list->currentIndex().row();
    return row >= 0 ? m_shown.at(static_cast<std::size_t>(row)).name : m_printers.currentName();
}

void PrinterChoice::accept()
{
    m_printers.choose(selectedName());
    QDialog::accept();
}

} // namespace lorvan

#include "journal/journal_details.h"

#include "journal/journal_lines.h"
#include "journal/journal_texts.h"
#include "lists/table_list.h"
#include "look/themed_label.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace lorvan {
namespace {

const QString mark = QStringLiteral("≠ ");
const QString noMark = QStringLiteral("   ");

QStandardItem* cell(const QString& text, bool differs)
{
    auto* const item = new QStandardItem(text);
    QFont font;
    font.setBold(differs);
    item->setData(differs ? QVariant(font) : QVariant(), Qt::FontRole);
    return item;
}

QList<QStandardItem*> cellsOf(const JournalLine& line)
{
    auto* const name = cell((line.differs ? mark : noMark) + line.name, line.differs);
    name->setData(line.differs ? line.name + QStringLiteral(", άλλαξε") : line.name, Qt::AccessibleTextRole);
    return {name, cell(line.before, line.differs), cell(line.after, line.differs)};
}

QString headingOf(const JournalRow& row)
{
    return QStringLiteral("%1, %2, %3 στον υπολογιστή %4")
        .arg(journalActionText(row), journalTimeText(row), row.user, row.computer);
}

} // namespace

JournalDetails::JournalDetails(QWidget* parent)
    : QWidget(parent)
    , m_heading(new ThemedLabel({}, ColourRole::PageText))
    , m_lines(new QStandardItemModel(this))
    , m_list(new TableList(this))
{
    m_heading->setObjectName(QStringLiteral("change"));
    m_heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_list->setObjectName(QStringLiteral("states"));
    m_list->setAccessibleName(QStringLiteral("Πριν και μετά"));
    m_list->setModel(m_lines);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(2);
    rows->addWidget(m_heading);
    rows->addWidget(m_list, 1);
    clear();
}

void JournalDetails::setTitles()
{
    m_lines->setHorizontalHeaderLabels(
        {noMark + QStringLiteral("Στοιχείο"), QStringLiteral("Πριν"), QStringLiteral("Μετά")});
    QHeaderView& header = *m_list->header();
    header.setSectionResizeMode(QHeaderView::Stretch);
}

void JournalDetails::show(const JournalRow& row)
{
    clear();
    m_heading->setText(headingOf(row));
    m_heading->setToolTip(m_heading->text().toHtmlEscaped());
    const std::vector<JournalLine> lines = journalLines(row);
    for (const JournalLine& line : lines)
        m_lines->appendRow(cellsOf(line));
    const auto first = std::find_if(lines.begin(), lines.end(), [](const JournalLine& line) { return line.differs; });
    const int shown = first == lines.end() ? 0 : static_cast<int>(first - lines.begin());
    m_list->setCurrentIndex(m_lines->index(shown, 0));
}

void JournalDetails::clear()
{
    m_lines->clear();
    setTitles();
    m_heading->clear();
}

} // namespace lorvan

#include "journal/journal_model.h"

#include "journal/journal_texts.h"

namespace lorvan {
namespace {

QString textOf(const JournalRow& row, int column)
{
    switch (column) {
    case JournalModel::When:
        return journalTimeText(row);
    case JournalModel::Who:
        return row.user;
    case JournalModel::What:
        return journalActionText(row);
    default:
        return journalSummary(row);
    }
}

} // namespace

JournalModel::JournalModel(JournalReader& reader, QObject* parent)
    : QAbstractTableModel(parent)
    , m_reader(reader)
{
    connect(&m_reader, &JournalReader::found, this, &JournalModel::append);
}

void JournalModel::show(const JournalFilter& filter)
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
    m_reader.begin(filter);
}

/// The chain's hashes are shown nowhere and would be half of what is kept.
void JournalModel::append(const std::vector<JournalRow>& rows)
{
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    for (const JournalRow& row : rows) {
        m_rows.push_back(row);
        m_rows.back().previous.clear();
        m_rows.back().hash.clear();
    }
    endInsertRows();
}

int JournalModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int JournalModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant JournalModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    return textOf(row(index.row()), index.column());
}

QVariant JournalModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles{
        QStringLiteral("Πότε"), QStringLiteral("Χρήστης"), QStringLiteral("Ενέργεια"), QStringLiteral("Τι άλλαξε")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? titles.value(section) : QVariant();
}

} // namespace lorvan

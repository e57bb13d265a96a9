#include "search/search_model.h"

#include "look/theme.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

bool isAmount(int column)
{
    return column == SearchModel::Income || column == SearchModel::Expense;
}

Currency amountIn(const SearchHit& hit, int column)
{
    return column == SearchModel::Income ? hit.income : hit.expense;
}

QColor colourOf(Currency amount, int column)
{
    const ColourRole role = column == SearchModel::Income ? ColourRole::Income : ColourRole::Expense;
    return Theme::instance().colour(amount.isZero() ? ColourRole::Faint : role);
}

} // namespace

void SearchModel::clear()
{
    m_wanted = page;
    beginResetModel();
    m_rows.clear();
    m_hits = {};
    endResetModel();
}

void SearchModel::add(SearchBatch batch, int lastNeeded)
{
    m_hits.add(std::move(batch));
    showHits(lastNeeded < rowCount() && lastNeeded >= 0 ? &hit(lastNeeded) : nullptr);
}

void SearchModel::replace(SearchHits hits)
{
    beginResetModel();
    m_hits = std::move(hits);
    m_wanted = std::max(page, m_rows.size());
    m_rows = m_hits.newest(m_wanted, nullptr);
    endResetModel();
}

void SearchModel::showMore()
{
    m_wanted = m_rows.size() + page;
    showHits(nullptr);
}

/// Movements of early days that were found first would otherwise draw all that lie between them into the list.
void SearchModel::showHits(const SearchHit* lastNeeded)
{
    const auto hits = m_hits.newest(m_wanted, lastNeeded);
    if (hits.empty())
        return;
    removeRowsAfter(hits.back());
    for (std::size_t row = 0; row < hits.size(); ++row) {
        std::size_t end = row;
        while (end < hits.size() && (row == m_rows.size() || hits[end] != m_rows[row]))
            ++end;
        if (end == row)
            continue;
        insertHits(
            row, hits.begin() + static_cast<std::ptrdiff_t>(row), hits.begin() + static_cast<std::ptrdiff_t>(end));
        row = end - 1;
    }
}

void SearchModel::removeRowsAfter(const SearchHit* last)
{
    const auto isBefore = [](const SearchHit* one, const SearchHit* other) {
        return std::pair(one->day, one->key) > std::pair(other->day, other->key);
    };
    const auto first = std::upper_bound(m_rows.begin(), m_rows.end(), last, isBefore);
    if (first == m_rows.end())
        return;
    beginRemoveRows({}, static_cast<int>(first - m_rows.begin()), rowCount() - 1);
    m_rows.erase(first, m_rows.end());
    endRemoveRows();
}

void SearchModel::insertHits(std::size_t first, std::vector<const SearchHit*>::const_iterator begin,
    std::vector<const SearchHit*>::const_iterator end)
{
    const int row = static_cast<int>(first);
    beginInsertRows({}, row, row + static_cast<int>(end - begin) - 1);
    m_rows.insert(m_rows.begin() + row, begin, end);
    endInsertRows();
}

std::optional<int> SearchModel::rowOf(qint64 key) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [key](const SearchHit* hit) { return hit->key == key; });
    return found == m_rows.end() ? std::nullopt : std::optional(static_cast<int>(found - m_rows.begin()));
}

QString SearchModel::widestAmount(Column column) const
{
    QString widest;
    for (const SearchHit* const hit : m_rows) {
        if (const QString text = amountOrZeroText(amountIn(*hit, column)); text.size() > widest.size())
            widest = text;
    }
    return widest;
}

int SearchModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SearchModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString SearchModel::textOf(const SearchHit& hit, int column) const
{
    switch (column) {
    case Day:
        return dateText(dateFromStored(hit.day));
    case Code:
        return QString::number(hit.code) + u' ' + m_names.value(hit.code);
    case Description:
        return QString::fromUtf8(hit.description.data(), static_cast<qsizetype>(hit.description.size()));
    case Cheque:
        return hit.cheque ? QStringLiteral("§") : QString();
    default:
        return amountOrZeroText(amountIn(hit, column));
    }
}

QVariant SearchModel::data(const QModelIndex& index, int role) const
{
    const SearchHit& found = hit(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return textOf(found, index.column());
    case Qt::AccessibleTextRole:
        return index.column() == Cheque && found.cheque ? QStringLiteral("επιταγή") : textOf(found, index.column());
    case Qt::TextAlignmentRole:
        return isAmount(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ForegroundRole:
        return isAmount(index.column()) ? QVariant(colourOf(amountIn(found, index.column()), index.column()))
                                        : QVariant();
    default:
        return {};
    }
}

QVariant SearchModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles{QStringLiteral("Ημέρα"), QStringLiteral("Κωδικός"), QStringLiteral("Περιγραφή"),
        QStringLiteral("Έσοδα"), QStringLiteral("Έξοδα"), QStringLiteral("Επ.")};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return titles.value(section);
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole && isAmount(section))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

} // namespace lorvan

#include "door/books_model.h"

#include "look/theme.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

QString lastUseText(const KnownBook& book, const BookLook& look)
{
    const QDateTime last = look.lastUse.isValid() ? look.lastUse : book.opened;
    return last.isValid() ? last.toString(QStringLiteral("dd-MM-yyyy HH:mm")) : QString();
}

QString sizeOrTrouble(const BookLook& look)
{
    const QString trouble = conditionText(look.condition);
    return trouble.isEmpty() ? sizeText(look.size) : trouble;
}

} // namespace

BooksModel::BooksModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    connect(&Theme::instance(), &Theme::changed, this,
        [this] { Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::ForegroundRole}); });
}

void BooksModel::setBooks(std::vector<KnownBook> books)
{
    beginResetModel();
    m_rows.clear();
    for (KnownBook& each : books)
        m_rows.push_back({std::move(each), std::nullopt});
    endResetModel();
}

void BooksModel::setLook(int row, BookLook look)
{
    if (row >= rowCount())
        return;
    m_rows[static_cast<std::size_t>(row)].look = std::move(look);
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int BooksModel::rowOf(const QString& folder) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
        [&](const Row& each) { return isSameBook(each.book.settings.dataFolder, folder); });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int BooksModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int BooksModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant BooksModel::data(const QModelIndex& index, int role) const
{
    const auto& [book, look] = m_rows.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::ForegroundRole && look && look->condition != BookCondition::Ready)
        return Theme::instance().colour(ColourRole::Muted);
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    switch (index.column()) {
    case Name:
        return book.settings.heading;
    case Folder:
        return book.settings.dataFolder;
    case LastUse:
        return look ? lastUseText(book, *look) : QString();
    case Size:
        return look ? sizeOrTrouble(*look) : QStringLiteral("…");
    default:
        return {};
    }
}

QVariant BooksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles{QStringLiteral("Βιβλίο"), QStringLiteral("Φάκελος"),
        QStringLiteral("Τελευταία χρήση"), QStringLiteral("Μέγεθος")};
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? titles.value(section) : QVariant();
}

} // namespace lorvan

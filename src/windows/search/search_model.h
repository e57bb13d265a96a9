#pragma once

#include "search/code_names.h"
#include "search/search_hits.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

namespace lorvan {

/// The movements that were found, the newest day first. The first ones of many are shown, and more on demand.
class SearchModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Day, Code, Description, Income, Expense, Cheque, ColumnCount };
    static constexpr std::size_t page = 500;

    using QAbstractTableModel::QAbstractTableModel;

    void setCodeNames(const CodeNames& names) { m_names = names; }
    void clear();
    /// Puts movements that were found at their places. Rows up to `lastNeeded` stay; others may make room for them.
    void add(SearchBatch batch, int lastNeeded);
    /// Shows these in place of all others, as many as before.
    void replace(SearchHits hits);
    /// Shows a page more, if there is more.
    void showMore();

    [[nodiscard]] const SearchTotals& totals() const { return m_hits.totals(); }
    [[nodiscard]] const SearchHit& hit(int row) const { return *m_rows.at(static_cast<std::size_t>(row)); }
    /// The row of the movement with that key, if it is shown.
    [[nodiscard]] std::optional<int> rowOf(qint64 key) const;
    /// The widest amount of a column that is shown, as text.
    [[nodiscard]] QString widestAmount(Column column) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void showHits(const SearchHit* lastNeeded);
    void removeRowsAfter(const SearchHit* last);
    void insertHits(std::size_t first, std::vector<const SearchHit*>::const_iterator begin,
        std::vector<const SearchHit*>::const_iterator end);
    [[nodiscard]] QString textOf(const SearchHit& hit, int column) const;

    SearchHits m_hits;
    CodeNames m_names;
    std::vector<const SearchHit*> m_rows;
    std::size_t m_wanted = page;
};

} // namespace lorvan

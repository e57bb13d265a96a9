#pragma once

#include "books/book_look.h"
#include "books/known_books.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

namespace lorvan {

/// The known books with what was seen of each; one that cannot be opened is grey.
class BooksModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Name, Folder, LastUse, Size, ColumnCount };

    explicit BooksModel(QObject* parent);

    void setBooks(std::vector<KnownBook> books);
    void setLook(int row, BookLook look);

    [[nodiscard]] const KnownBook& book(int row) const { return m_rows.at(static_cast<std::size_t>(row)).book; }
    /// No value as long as nobody has looked.
    [[nodiscard]] const std::optional<BookLook>& look(int row) const
    {
        return m_rows.at(static_cast<std::size_t>(row)).look;
    }
    /// The row of the book in a folder; -1 if there is none.
    [[nodiscard]] int rowOf(const QString& folder) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        KnownBook book;
        std::optional<BookLook> look;
    };

    std::vector<Row> m_rows;
};

} // namespace lorvan

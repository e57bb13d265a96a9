#pragma once

#include "journal/journal_reader.h"

#include <QAbstractTableModel>

#include <vector>

namespace lorvan {

/// The rows of the journal that have been read, newest first.
class JournalModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { When, Who, What, Change, ColumnCount };

    /// The reader must outlive the model.
    JournalModel(JournalReader& reader, QObject* parent);

    /// Forgets all rows and reads those that the filter accepts.
    void show(const JournalFilter& filter);

    [[nodiscard]] const JournalRow& row(int number) const { return m_rows.at(static_cast<std::size_t>(number)); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void append(const std::vector<JournalRow>& rows);

    JournalReader& m_reader;
    std::vector<JournalRow> m_rows;
};

} // namespace lorvan

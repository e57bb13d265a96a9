#pragma once

#include "export/table_export.h"

namespace lorvan {

/// Writes a table as text, see TableFormat::Csv, to a device that is open.
class CsvSink : public TableSink {
public:
    explicit CsvSink(QIODevice& device);

    void addRow(const std::vector<TableCell>& cells, const TableRowLook& look) override;
    void finish() override { }

private:
    void write(const QByteArray& bytes);

    QIODevice& m_device;
};

} // namespace lorvan

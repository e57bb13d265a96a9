#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <memory>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace lorvan {

/// A workbook that is written row by row into a new file, with temporary files beside it. The file appears with
/// finish(); without that there is none. All operations throw TableExportError.
class XlsxWorkbook {
public:
    static constexpr unsigned mostRows = 1'048'576; ///< As many as the format allows in one sheet.

    explicit XlsxWorkbook(const QString& path);

    /// Begins a new sheet with its first row. The sheet belongs to the workbook.
    lxw_worksheet* beginSheet();
    /// The row that is being written; the first one of each sheet is 0.
    [[nodiscard]] unsigned row() const { return static_cast<unsigned>(m_rows.back()); }
    void endRow() { ++m_rows.back(); }

    /// A new cell format; null for no number format. It belongs to the workbook.
    [[nodiscard]] lxw_format* newFormat(const char* numberFormat);
    void setWidth(int column, double characters);
    /// Keeps the row that is being written in view, and repeats it on each printed page.
    void keepInView();

    /// A text of more than 32,767 characters is cut.
    void addText(int column, const QString& text, lxw_format* format);
    void addNumber(int column, double number, lxw_format* format);
    void addAmount(int column, Currency amount, lxw_format* format);
    /// A date before 1900 is written as text, since spreadsheets do not know it.
    void addDate(int column, QDate day, lxw_format* format);

    /// Writes the file and reads it again (proveWorkbook()). Also throws if a StopCheck says no.
    void finish();

private:
    struct Free {
        void operator()(lxw_workbook* workbook) const;
    };

    QString m_path;
    std::unique_ptr<lxw_workbook, Free> m_workbook;
    lxw_worksheet* m_sheet = nullptr;
    std::vector<qint64> m_rows; ///< Complete rows in each sheet so far.
};

} // namespace lorvan

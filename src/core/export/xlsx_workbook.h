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

/// A workbook that is written row by row into a new file. Temporary files lie beside it. Until finish() there is no
/// file, and without it there will be none. All operations throw TableExportError.
class XlsxWorkbook {
public:
    static constexpr unsigned mostRows = 1'048'576; ///< In one sheet, as many as the format allows.

    explicit XlsxWorkbook(const QString& path);

    /// What follows goes into a new sheet, from its first row on. The sheet is the workbook's.
    lxw_worksheet* beginSheet();
    /// The number of the row that is being written, from 0 in each sheet.
    [[nodiscard]] unsigned row() const { return static_cast<unsigned>(m_rows.back()); }
    void endRow() { ++m_rows.back(); }

    /// Null stands for no number format. The format is the workbook's.
    [[nodiscard]] lxw_format* newFormat(const char* numberFormat);
    void setWidth(int column, double characters);
    /// The row that is being written stays in view, and stands on each printed page.
    void keepInView();

    /// Beyond 32,767 characters the text is cut.
    void addText(int column, const QString& text, lxw_format* format);
    void addNumber(int column, double number, lxw_format* format);
    void addAmount(int column, Currency amount, lxw_format* format);
    /// A date before 1900, which a spreadsheet does not know, is written as text.
    void addDate(int column, QDate day, lxw_format* format);

    /// Writes the file and proves it (proveWorkbook()); once a StopCheck says no, it ends with an error.
    void finish();

private:
    struct Free {
        void operator()(lxw_workbook* workbook) const;
    };

    QString m_path;
    std::unique_ptr<lxw_workbook, Free> m_workbook;
    lxw_worksheet* m_sheet = nullptr;
    std::vector<qint64> m_rows; ///< Of each sheet so far.
};

} // namespace lorvan

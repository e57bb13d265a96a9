#pragma once

#include "cashbook/movement.h"

#include <QString>

#include <array>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace lorvan {

/// Writes movements as an XLSX workbook into a new file: amounts as numbers (as texts beyond fifteen digits), days as
/// dates, titles that stay in view. Where a sheet is full, the next one begins. Temporary files lie beside it. Until
/// finish() there is no file, and without it there will be none.
class MovementWorkbook {
public:
    static constexpr unsigned mostRows = 1'048'576; ///< Titles included, as many as the format allows.

    /// Throws TableExportError.
    explicit MovementWorkbook(const QString& path, unsigned rowsOfSheet = mostRows);
    ~MovementWorkbook();
    MovementWorkbook(const MovementWorkbook&) = delete;
    MovementWorkbook& operator=(const MovementWorkbook&) = delete;

    /// Throws TableExportError.
    void add(const Movement& movement);
    /// Writes the file and reads it again. Throws TableExportError.
    void finish();

private:
    enum class Look { Titles, Whole, Date, Text, Amount };

    void beginSheet();
    void addNumber(int column, double number, Look look);
    void addAmount(int column, Currency amount);
    void widen(int column);
    void addDate(int column, QDate day);
    void addText(int column, const QString& text, Look look = Look::Text);

    [[nodiscard]] lxw_format* formatOf(Look look) const { return m_formats[static_cast<std::size_t>(look)]; }

    QString m_path;
    lxw_workbook* m_workbook;
    lxw_worksheet* m_sheet = nullptr;
    std::array<lxw_format*, 5> m_formats{};
    const unsigned m_rowsOfSheet;
    unsigned m_row = 0;
    std::vector<qint64> m_rows; ///< Of the sheets that are full.
};

} // namespace lorvan

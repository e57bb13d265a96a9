#include "export/xlsx_workbook.h"

#include "export/table_export.h"
#include "export/workbook_proof.h"
#include "platform/stop_check.h"

#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <chrono>
#include <future>
#include <thread>

namespace lorvan {
namespace {

constexpr qsizetype longestText = 32767;
/// For earlier dates the library would write a negative number, which is shown as a row of hashes.
constexpr int firstYear = 1900;

void check(lxw_error outcome)
{
    if (outcome != LXW_NO_ERROR)
        throw TableExportError(QString::fromUtf8(lxw_strerror(outcome)));
}

lxw_workbook* newWorkbook(const QString& path)
{
    QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    return workbook_new_opt(QFile::encodeName(path).constData(), &options);
}

/// The library takes seconds to pack a large workbook and cannot be interrupted. Once a check says no, nobody waits for
/// it any longer; it ends by itself or with the process.
lxw_error closeUnlessStopped(lxw_workbook* workbook)
{
    constexpr std::chrono::milliseconds betweenQuestions{20};
    std::packaged_task<lxw_error()> closing([workbook] { return workbook_close(workbook); });
    std::future<lxw_error> closed = closing.get_future();
    std::thread(std::move(closing)).detach();
    while (closed.wait_for(betweenQuestions) != std::future_status::ready) {
        if (!StopCheck::goesOn())
            throw TableExportError(QStringLiteral("Η ενέργεια διακόπηκε."));
    }
    return closed.get();
}

} // namespace

void XlsxWorkbook::Free::operator()(lxw_workbook* workbook) const
{
    lxw_workbook_free(workbook);
}

XlsxWorkbook::XlsxWorkbook(const QString& path)
    : m_path(path)
    , m_workbook(newWorkbook(path))
{
    if (!m_workbook)
        check(LXW_ERROR_CREATING_XLSX_FILE);
}

lxw_worksheet* XlsxWorkbook::beginSheet()
{
    m_sheet = workbook_add_worksheet(m_workbook.get(), nullptr);
    if (!m_sheet)
        check(LXW_ERROR_CREATING_TMPFILE);
    m_rows.push_back(0);
    return m_sheet;
}

lxw_format* XlsxWorkbook::newFormat(const char* numberFormat)
{
    lxw_format* const format = workbook_add_format(m_workbook.get());
    if (numberFormat)
        format_set_num_format(format, numberFormat);
    return format;
}

void XlsxWorkbook::setWidth(int column, double characters)
{
    const auto place = static_cast<lxw_col_t>(column);
    check(worksheet_set_column(m_sheet, place, place, characters, nullptr));
}

void XlsxWorkbook::keepInView()
{
    worksheet_freeze_panes(m_sheet, row() + 1, 0);
    worksheet_repeat_rows(m_sheet, row(), row());
}

void XlsxWorkbook::addText(int column, const QString& text, lxw_format* format)
{
    const QByteArray bytes = text.left(longestText).toUtf8();
    check(worksheet_write_string(m_sheet, row(), static_cast<lxw_col_t>(column), bytes.constData(), format));
}

void XlsxWorkbook::addNumber(int column, double number, lxw_format* format)
{
    check(worksheet_write_number(m_sheet, row(), static_cast<lxw_col_t>(column), number, format));
}

void XlsxWorkbook::addAmount(int column, Currency amount, lxw_format* format)
{
    addNumber(column, static_cast<double>(amount.tenThousandths()) / Currency::unitsPerEuro, format);
}

void XlsxWorkbook::addDate(int column, QDate day, lxw_format* format)
{
    if (day.year() < firstYear) {
        addText(column, day.toString(QStringLiteral("dd/MM/yyyy")), format);
        return;
    }
    lxw_datetime date{day.year(), day.month(), day.day(), 0, 0, 0};
    check(worksheet_write_datetime(m_sheet, row(), static_cast<lxw_col_t>(column), &date, format));
}

void XlsxWorkbook::finish()
{
    check(closeUnlessStopped(m_workbook.release()));
    proveWorkbook(m_path, m_rows);
}

} // namespace lorvan

#include "monthly/month_package.h"

#include "csv/book_state.h"
#include "csv/csv_import.h"
#include "csv/table_lines.h"
#include "export/movement_workbook.h"
#include "export/table_export.h"
#include "monthly/month_choice.h"
#include "monthly/month_documents.h"
#include "monthly/month_index.h"
#include "monthly/zip_writer.h"
#include "platform/date_text.h"
#include "platform/files/durable_files.h"
#include "platform/files/folder_writing.h"
#include "platform/files/system_reason.h"
#include "platform/files/work_folder.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int steps = 8;

const QString dayFile = QStringLiteral("hmeres.pdf");
const QString workbookFile = QStringLiteral("kinhseis.xlsx");
const QString sumsFile = QStringLiteral("synola.pdf");
const QString sumsTableFile = QStringLiteral("synola.xlsx");
const QString sealsFile = QStringLiteral("sfragides.csv");
const QString indexFile = QStringLiteral("index.html");

const BookTable& tableOf(const char* file)
{
    const auto& tables = bookTables();
    return *std::find_if(
        tables.begin(), tables.end(), [file](const BookTable& each) { return QByteArray(each.name) + ".csv" == file; });
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Refused(
            QStringLiteral("Το αρχείο %1 δεν διαβάζεται: %2").arg(path, withStop(systemReason(file.errorString()))));
    return file.readAll();
}

/// The package in the making: each part is made from the state of the book and added.
class Package {
public:
    Package(const MonthRequest& request, const BookState& state, const Folder& folder, const StepProgress& progress)
        : m_request(request)
        , m_folder(folder)
        , m_progress(progress)
        , m_main(state.openMain())
        , m_auxiliary(state.openAuxiliary())
        , m_zip(request.now)
    {
        if (movementsInMonth(m_main, request.month) == 0)
            throw Refused(emptyMonthText(request.month));
        m_content = readMonth(m_main, m_auxiliary, request.month);
    }

    [[nodiscard]] QByteArray make(const DocumentBinding& bind)
    {
        beginStep(QStringLiteral("Γράφονται οι κινήσεις του μήνα…"));
        addTables();
        addWorkbook();
        add(sealsFile, QStringLiteral("οι σφραγίδες των ημερών του μήνα"), sealsTable(m_content));
        beginStep(QStringLiteral("Σελιδοποιούνται οι ημέρες του μήνα…"));
        addDocuments(bind);
        m_zip.add(indexFile.toLatin1(), monthIndexPage(m_content, m_index));
        return m_zip.finish();
    }

private:
    void add(const QString& name, const QString& about, const QByteArray& content)
    {
        m_zip.add(name.toLatin1(), content);
        m_index.files.push_back({name, about});
        m_progress(++m_done, steps);
        continueOrGiveUp();
    }
    void addTable(const char* file, const QString& about, const std::optional<RowsOfDays>& days)
    {
        const BookTable& table = tableOf(file);
        QByteArray lines;
        forEachLine(m_main, table, table.columns, days, [&lines](const QByteArray& line) { lines += line; });
        add(QLatin1String(file), about, lines);
    }
    void addTables();
    void addWorkbook();
    void addDocuments(const DocumentBinding& bind);

    const MonthRequest& m_request;
    const Folder& m_folder;
    const StepProgress& m_progress;
    Connection m_main;
    Connection m_auxiliary;
    MonthContent m_content;
    MonthIndex m_index{m_request.heading, m_request.now, {}, dayFile, {}};
    ZipWriter m_zip;
    int m_done = 0;
};

void Package::addTables()
{
    const RowsOfDays ofMonth{"hmeromhnia", m_request.month, m_request.month.addMonths(1).addDays(-1)};
    addTable(
        import_files::movements, QStringLiteral("οι κινήσεις του μήνα, όπως τις διαβάζει η «Εισαγωγή CSV»"), ofMonth);
    addTable(import_files::codes, QStringLiteral("όλοι οι κωδικοί του βιβλίου"), std::nullopt);
    addTable(import_files::groups, QStringLiteral("όλες οι ομάδες του βιβλίου"), std::nullopt);
}

void Package::addWorkbook()
{
    const QString path = m_folder.pathOf(workbookFile);
    MovementWorkbook workbook(path);
    for (const Movement& movement : m_content.movements)
        workbook.add(movement);
    workbook.finish();
    add(workbookFile, QStringLiteral("οι κινήσεις του μήνα ως υπολογιστικό φύλλο"), contentOf(path));
}

void Package::addDocuments(const DocumentBinding& bind)
{
    const QString month = monthText(m_content.month);
    const BoundDocuments days =
        bind(dayReports(m_main, m_content, m_request.heading), QStringLiteral("Ταμείο ημέρας, ") + month);
    m_index.firstPages = days.firstPages;
    add(dayFile, QStringLiteral("το ταμείο κάθε ημέρας, για εκτύπωση"), days.pdf);
    const ReportDocument sums = codeSumsReport(m_content, m_request.heading);
    add(sumsFile, QStringLiteral("τα σύνολα ανά κωδικό, για εκτύπωση"),
        bind({sums}, QStringLiteral("Σύνολα ανά κωδικό, ") + month).pdf);
    const PartOfWork part(QStringLiteral("Γράφονται τα σύνολα του μήνα…"));
    const QString path = m_folder.pathOf(sumsTableFile);
    if (!saveTable(sums, path, TableFormat::Xlsx, [](int, int) { return StopCheck::goesOn(); }))
        throw GivenUp();
    add(sumsTableFile, QStringLiteral("τα σύνολα ανά κωδικό ως υπολογιστικό φύλλο"), contentOf(path));
}

/// In a folder that is removed at the end, beside the file.
QByteArray packageOf(const MonthRequest& request, const BookFiles& book, KeyRing& keys, const DocumentBinding& bind,
    const StepProgress& progress)
{
    const QString parent = QFileInfo(request.path).path();
    const QString prefix = WorkFolder::prefixHere(QStringLiteral(".lorvan-month-"));
    return asWriting(parent, [&] {
        const Folder beside(parent);
        WorkFolder::removeAbandoned(beside, prefix);
        const WorkFolder work(beside, prefix);
        beginStep(QStringLiteral("Αντιγράφεται το βιβλίο…"));
        const BookState state(book, keys, work.folder().pathOf(QStringLiteral("book")), progress);
        return Package(request, state, work.folder(), progress).make(bind);
    });
}

} // namespace

void writeMonthPackage(const MonthRequest& request, const BookFiles& book, KeyRing& keys, const DocumentBinding& bind,
    const StepProgress& progress)
{
    try {
        const QByteArray package = packageOf(request, book, keys, bind, progress);
        decideOrGiveUp();
        replaceFile(request.path, package, FileAccess::Umask);
    } catch (const FileError& error) {
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται: %2").arg(request.path, withStop(error.reason())));
    } catch (const TableExportError& error) {
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται: %2")
                          .arg(request.path, withStop(QString::fromUtf8(error.what()))));
    }
}

} // namespace lorvan

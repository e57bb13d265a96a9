#include "preview/report_saver.h"

#include "export/table_export.h"
#include "look/busy_pointer.h"
#include "look/message_window.h"
#include "preview/save_dialog.h"
#include "report_pages.h"
#include "report_pdf.h"

#include <QDir>
#include <QStandardPaths>

namespace lorvan {
namespace {

const QString csv = QStringLiteral("csv");

QString usualFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// The path, once the work has written it.
std::optional<QString> write(QWidget* window, BackgroundRun& run, const QString& path, const ProgressTexts& texts,
    const BackgroundRun::Work& work)
{
    try {
        if (run.run(window, texts, work))
            return path;
    } catch (const std::exception& failure) {
        showMessage(window, QMessageBox::Warning, QStringLiteral("Προσοχή"),
            QStringLiteral("Το αρχείο %1 δεν αποθηκεύτηκε.\n\n%2").arg(path, QString::fromUtf8(failure.what())));
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> ReportSaver::askPath(SaveDialog& dialog, const QString& name)
{
    dialog.setDirectory(m_folder.isEmpty() ? usualFolder() : m_folder);
    dialog.selectFile(name);
    const OrdinaryPointer pointer;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    m_folder = QFileInfo(path).absolutePath();
    return path;
}

std::optional<QString> ReportSaver::savePdf(
    QWidget* window, BackgroundRun& run, const ReportPages& shown, const QString& name)
{
    SaveDialog dialog(
        QStringLiteral("Αποθήκευση ως PDF"), {{QStringLiteral("Έγγραφο PDF (*.pdf)"), QStringLiteral("pdf")}}, window);
    const auto path = askPath(dialog, name);
    if (!path)
        return std::nullopt;
    const ProgressTexts texts{name, QStringLiteral("Αποθηκεύεται το PDF…"), QStringLiteral("Σελίδες")};
    return write(window, run, *path, texts, [&shown, &path](const BackgroundRun::Progress& progress) {
        ReportPages pages(shown.document(), shown.carries());
        return lorvan::savePdf(pages, *path, progress) == PageOutcome::Done;
    });
}

std::optional<QString> ReportSaver::saveTable(
    QWidget* window, BackgroundRun& run, const ReportPages& shown, const QString& name)
{
    SaveDialog dialog(QStringLiteral("Αποθήκευση ως πίνακας"),
        {{QStringLiteral("Υπολογιστικό φύλλο XLSX (*.xlsx)"), QStringLiteral("xlsx")},
            {QStringLiteral("Κείμενο CSV με ερωτηματικά (*.csv)"), csv}},
        window);
    const auto path = askPath(dialog, name);
    if (!path)
        return std::nullopt;
    const bool isCsv = QFileInfo(*path).suffix().compare(csv, Qt::CaseInsensitive) == 0;
    const TableFormat format = isCsv ? TableFormat::Csv : TableFormat::Xlsx;
    const ProgressTexts texts{name, QStringLiteral("Αποθηκεύεται ο πίνακας…"), QStringLiteral("Γραμμές")};
    return write(window, run, *path, texts, [&shown, &path, format](const BackgroundRun::Progress& progress) {
        return lorvan::saveTable(shown.document(), *path, format, progress);
    });
}

} // namespace lorvan

#include "door/transfer_window.h"

#include "book/book_files.h"
#include "books/book_making.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "door/report_window.h"
#include "look/focus_rules.h"
#include "preview/folder_dialog.h"

#include <QFileInfo>
#include <QGridLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{620, 210};

} // namespace

TransferWindow::TransferWindow(const TransferTexts& texts, QWidget* parent)
    : EntryDialog(texts.objectName, texts.title, texts.doing, parent)
    , m_offeredFolder(freeFolder(texts.heading))
    , m_source(newEntry("source", {}))
    , m_browse(newBrowseButton("browseSource", QStringLiteral("Επιλογή: %1").arg(texts.source), m_source))
    , m_heading(newEntry("heading", {}))
    , m_folder(newEntry("folder", {}))
    , m_browseFolder(newBrowseButton("browse", QStringLiteral("Επιλογή του φακέλου"), m_folder))
{
    auto* const fields = new QWidget;
    auto* const grid = new QGridLayout(fields);
    grid->setContentsMargins({});
    addEntryRow(grid, texts.source, m_source, m_browse);
    addEntryRow(grid, QStringLiteral("Τίτλος του βιβλίου"), m_heading);
    addEntryRow(grid, QStringLiteral("Φάκελος του βιβλίου"), m_folder, m_browseFolder);
    grid->setRowStretch(grid->rowCount(), 1);
    m_heading->setText(texts.heading);
    m_folder->setText(m_offeredFolder);
    setFields(fields, firstSize);
    chainTabOrder({m_source, m_heading, m_folder});
    connect(m_browse, &CommandButton::clicked, this, [this] {
        if (const QString chosen = browse(); !chosen.isEmpty())
            m_source->setText(chosen);
    });
    connect(m_browseFolder, &CommandButton::clicked, this, [this] {
        if (const QString folder = askFolder(this, QStringLiteral("Φάκελος του βιβλίου"), m_folder->text());
            !folder.isEmpty())
            m_folder->setText(folder);
    });
    m_source->setFocus(Qt::OtherFocusReason);
}

void TransferWindow::carryOut()
{
    const QString source = folderFromTyped(m_source->text());
    const QString folder = folderFromTyped(m_folder->text());
    const QString heading = m_heading->text().trimmed();
    if (source.isEmpty() || !QFileInfo::exists(source))
        return refuse(source.isEmpty() ? QStringLiteral("Δώστε από πού θα γίνει το βιβλίο.")
                                       : QStringLiteral("Δεν υπάρχει το %1.").arg(source),
            *m_source);
    if (const QString fault = faultOfHeading(heading); !fault.isEmpty())
        return refuse(fault, *m_heading);
    if (const QString fault = faultOfTarget(folder); !fault.isEmpty())
        return refuse(fault, *m_folder);
    const auto report = transfer(source, folder);
    if (!report)
        return;
    m_made.dataFolder = BookFiles(folder).dataFolder();
    m_made.heading = heading;
    ReportWindow(windowTitle(), *report, this).exec();
    accept();
}

bool TransferWindow::hasTyped() const
{
    return !m_source->text().isEmpty() || m_folder->text() != m_offeredFolder;
}

} // namespace lorvan

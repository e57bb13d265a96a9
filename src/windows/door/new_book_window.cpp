#include "door/new_book_window.h"

#include "books/ready_sets.h"
#include "controls/command_button.h"
#include "controls/entry_field.h"
#include "door/first_user_form.h"
#include "look/focus_rules.h"
#include "platform/date_text.h"
#include "preview/background_run.h"
#include "preview/folder_dialog.h"

#include <QComboBox>
#include <QGridLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{760, 340};
constexpr int between = 10;

} // namespace

NewBookWindow::NewBookWindow(Clock clock, QWidget* parent)
    : EntryDialog(QStringLiteral("newBook"), QStringLiteral("Νέο βιβλίο"), QStringLiteral("Δημιουργία"), parent)
    , m_clock(std::move(clock))
    , m_offeredFolder(freeFolder(QStringLiteral("Ταμείο")))
    , m_offeredDay(dateText(m_clock.today().addDays(-1)))
    , m_heading(newEntry("heading", {}))
    , m_folder(newEntry("folder", {}))
    , m_browse(newBrowseButton("browse", QStringLiteral("Επιλογή του φακέλου"), m_folder))
    , m_set(new QComboBox)
    , m_amount(newEntry("amount", {}))
    , m_day(newEntry("day", {}))
    , m_user(new FirstUserForm)
{
    auto* const fields = new QWidget;
    auto* const columns = new QHBoxLayout(fields);
    columns->setContentsMargins({});
    columns->setSpacing(between);
    auto* const left = new QVBoxLayout;
    left->setSpacing(between);
    left->addWidget(bookFields());
    left->addWidget(openingFields());
    left->addStretch(1);
    columns->addLayout(left, 1);
    columns->addWidget(m_user, 1, Qt::AlignTop);
    fillSets();
    m_heading->setText(DataFolderSettings().heading);
    m_folder->setText(m_offeredFolder);
    m_day->setText(m_offeredDay);
    setFields(fields, firstSize);
    chainTabOrder(QWidgetList{m_heading, m_folder, m_set, m_amount, m_day} + m_user->tabOrder());
    connect(m_day, &EntryField::left, this, [this] {
        if (const auto day = readDate(m_day->text(), m_clock.today()))
            m_day->setText(dateText(*day));
    });
    connect(m_browse, &CommandButton::clicked, this, [this] {
        if (const QString folder = askFolder(this, QStringLiteral("Φάκελος του βιβλίου"), m_folder->text());
            !folder.isEmpty())
            m_folder->setText(folder);
    });
    m_heading->setFocus(Qt::OtherFocusReason);
}

QGroupBox* NewBookWindow::bookFields()
{
    auto* const box = new QGroupBox(QStringLiteral("Βιβλίο"));
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(6);
    m_heading->setToolTip(QStringLiteral("Το όνομα του βιβλίου, στο παράθυρο και στις εκτυπώσεις"));
    m_folder->setToolTip(QStringLiteral("Ο φάκελος των αρχείων του· αν λείπει, φτιάχνεται"));
    m_set->setObjectName(QStringLiteral("readySet"));
    m_set->setToolTip(QStringLiteral("Έτοιμοι κωδικοί και ομάδες, που αλλάζουν όποτε θέλετε"));
    addEntryRow(grid, QStringLiteral("Τίτλος"), m_heading);
    addEntryRow(grid, QStringLiteral("Φάκελος"), m_folder, m_browse);
    addEntryRow(grid, QStringLiteral("Κωδικοί"), m_set);
    return box;
}

QGroupBox* NewBookWindow::openingFields()
{
    auto* const box = new QGroupBox(QStringLiteral("Υπόλοιπο ανοίγματος"));
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(6);
    m_amount->setRightAligned();
    m_amount->setPlaceholderText(QStringLiteral("κενό: χωρίς υπόλοιπο"));
    m_amount->setToolTip(QStringLiteral("Τα μετρητά που είχε το ταμείο· κενό αν δεν αρχίζει με υπόλοιπο"));
    m_day->setToolTip(QStringLiteral("Η τελευταία ημέρα πριν από το βιβλίο"));
    addEntryRow(grid, QStringLiteral("Μετρητά"), m_amount);
    addEntryRow(grid, QStringLiteral("Στο τέλος της"), m_day);
    return box;
}

void NewBookWindow::fillSets()
{
    for (const ReadySet& set : readySets())
        m_set->addItem(QStringLiteral("%1 (%2 κωδικοί)").arg(set.name).arg(set.codeCount()));
    m_set->addItem(QStringLiteral("Κανένας"));
}

NewBookDraft NewBookWindow::typed() const
{
    const auto set = static_cast<std::size_t>(m_set->currentIndex());
    return {folderFromTyped(m_folder->text()), m_heading->text().trimmed(), m_user->typed(), m_day->text(),
        m_amount->text(), set < readySets().size() ? std::optional(set) : std::nullopt};
}

EntryField& NewBookWindow::fieldOf(NewBookField field) const
{
    switch (field) {
    case NewBookField::Folder:
        return *m_folder;
    case NewBookField::UserName:
        return m_user->field(FirstUserField::Name);
    case NewBookField::Password:
        return m_user->field(FirstUserField::Password);
    case NewBookField::Repeated:
        return m_user->field(FirstUserField::Repeated);
    case NewBookField::OpeningDay:
        return *m_day;
    case NewBookField::OpeningAmount:
        return *m_amount;
    default:
        return *m_heading;
    }
}

void NewBookWindow::carryOut()
{
    const NewBookDraft draft = typed();
    if (const auto fault = faultOf(draft, m_clock.today())) {
        refuse(fault->text, fieldOf(fault->field));
        return;
    }
    const ProgressTexts texts{windowTitle(), QStringLiteral("Φτιάχνεται το βιβλίο…"), {}};
    if (!runStoppable(backgroundRun(), this, texts, [&](const StepProgress&) { makeBook(draft, m_clock); }))
        return;
    m_made.dataFolder = draft.folder;
    m_made.heading = draft.heading;
    accept();
}

bool NewBookWindow::hasTyped() const
{
    return !m_user->isEmpty() || !m_amount->text().isEmpty() || m_folder->text() != m_offeredFolder
        || m_heading->text() != DataFolderSettings().heading || m_set->currentIndex() > 0
        || m_day->text() != m_offeredDay;
}

} // namespace lorvan

#include "door/books_window.h"

#include "book/book_files.h"
#include "book/pending_restore.h"
#include "books/book_making.h"
#include "controls/command_button.h"
#include "controls/guarded_window.h"
#include "demo/demo_shop.h"
#include "door/backup_window.h"
#include "door/books_model.h"
#include "door/first_user_window.h"
#include "door/new_book_window.h"
#include "door/older_book_window.h"
#include "door/report_window.h"
#include "door/restoring.h"
#include "lists/table_list.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/remembered_size.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "preview/background_run.h"
#include "preview/folder_dialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <chrono>

namespace lorvan {

using namespace std::chrono_literals;

namespace {

constexpr QSize firstSize{900, 440};
constexpr int margin = 12;
constexpr int between = 8;
constexpr int betweenCommands = 4;
constexpr std::uint64_t sampleSeed = 1;

const QString title = QStringLiteral("Βιβλία");

/// Written by hand into the path file, a heading can be of any length.
QString shortened(const QString& heading)
{
    constexpr qsizetype longest = 80;
    const QString line = heading.simplified();
    return line.size() > longest ? line.left(longest) + u'…' : line;
}

QString sampleUsers()
{
    QStringList lines;
    for (const DemoUser& user : demoUsers())
        lines += QStringLiteral("Χρήστης %1, κωδικός %2").arg(user.name, user.password);
    return lines.join(u'\n');
}

} // namespace

BooksWindow::BooksWindow(const BookChoice& choice, Clock clock)
    : m_choice(choice)
    , m_clock(std::move(clock))
    , m_gate(
          this, ActionGate::Opened::OnItsOwn, [] {}, [this] { tellUnconfirmed(this); })
    , m_model(new BooksModel(this))
    , m_list(new TableList(this))
    , m_heading(
          new ThemedLabel(QStringLiteral("Τα βιβλία αυτού του υπολογιστή"), ColourRole::PageText, 1.2, QFont::DemiBold))
    , m_about(new ThemedLabel({}, ColourRole::PageMuted))
{
    setObjectName(QStringLiteral("books"));
    setWindowTitle(title);
    setWindowFlag(Qt::WindowMinimizeButtonHint);
    m_list->setModel(m_model);
    layOut();
    connectCommands();
    connect(m_list, &TableList::activated, this, [this] { m_open->click(); });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &BooksWindow::followSelection);
    connect(m_model, &BooksModel::dataChanged, this, &BooksWindow::followSelection);
    connect(&m_programWatch, &QTimer::timeout, this, &BooksWindow::followProgram);
    m_programWatch.start(1s);
    m_programRuns = m_choice.isProgramRunning();
    keepSize(this, firstSize);
    centreOnWorkArea(this);
}

void BooksWindow::layOut()
{
    m_list->setObjectName(QStringLiteral("list"));
    m_list->setAccessibleName(m_heading->text());
    m_list->setEmptyText(QStringLiteral("Δεν υπάρχει ακόμη βιβλίο. Το «Νέο βιβλίο» φτιάχνει ένα. Το «Δοκιμαστικό "
                                        "βιβλίο» δείχνει το πρόγραμμα με κινήσεις δύο ετών."));
    m_list->setColumnWidths({QStringLiteral("Δοκιμαστικό βιβλίο "), {}, QStringLiteral("88-88-8888 88:88 "),
        QStringLiteral("δεν διαβάζεται")});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(BooksModel::Folder, QHeaderView::Stretch);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_about->setObjectName(QStringLiteral("about"));
    m_about->setWordWrap(true);
    m_about->setMinimumHeight(2 * m_about->fontMetrics().lineSpacing());
    m_about->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const left = new QVBoxLayout;
    left->setSpacing(between);
    left->addWidget(m_heading);
    left->addWidget(m_list, 1);
    left->addWidget(m_about);
    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(margin, margin, margin, margin);
    columns->setSpacing(margin);
    columns->addLayout(left, 1);
    columns->addLayout(commandColumn());
    QWidgetList order{m_list};
    for (CommandButton* const each : m_commands)
        order += each;
    chainTabOrder(order);
    m_list->setFocus(Qt::OtherFocusReason);
}

CommandButton* BooksWindow::addCommand(
    const char* name, const QString& icon, const QString& caption, const QString& tip)
{
    m_commands.push_back(newCommand(name, icon, caption, tip));
    m_commands.back()->setSmall(true);
    return m_commands.back();
}

QLayout* BooksWindow::commandColumn()
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(betweenCommands);
    m_open = addCommand(
        "open", QStringLiteral("daybook"), QStringLiteral("Άνοιγμα"), QStringLiteral("Ανοίγει το επιλεγμένο βιβλίο"));
    m_open->setLook(CommandButton::Look::Solid);
    m_new = addCommand("new", QStringLiteral("newfolder"), QStringLiteral("Νέο βιβλίο…"),
        QStringLiteral("Φτιάχνει βιβλίο με πρώτο χρήστη, κωδικούς και υπόλοιπο"));
    m_existing = addCommand("existing", QStringLiteral("folder"), QStringLiteral("Υπάρχον βιβλίο…"),
        QStringLiteral("Προσθέτει στη λίστα ένα βιβλίο που υπάρχει σε κάποιον φάκελο"));
    m_fromBackup = addCommand("backup", QStringLiteral("undo"), QStringLiteral("Από αντίγραφο…"),
        QStringLiteral("Επαναφέρει ένα βιβλίο από το αντίγραφο ασφαλείας του"));
    m_fromOlder = addCommand("older", QStringLiteral("file"), QStringLiteral("Από παλαιότερο πρόγραμμα…"),
        QStringLiteral("Μεταφέρει ένα βιβλίο της παλαιότερης μορφής"));
    m_sample = addCommand("sample", QStringLiteral("table"), QStringLiteral("Δοκιμαστικό βιβλίο"),
        QStringLiteral("Φτιάχνει ένα βιβλίο με κινήσεις δύο ετών, για δοκιμές"));
    m_firstUser = addCommand("firstUser", QStringLiteral("users"), QStringLiteral("Πρώτος χρήστης…"),
        QStringLiteral("Προσθέτει τον πρώτο χρήστη σε ένα βιβλίο χωρίς χρήστες"));
    m_forget = addCommand("forget", QStringLiteral("delete"), QStringLiteral("Αφαίρεση από τη λίστα"),
        QStringLiteral("Το βιβλίο φεύγει από τη λίστα· τα αρχεία του μένουν"));
    m_end =
        addCommand("end", QStringLiteral("exit"), QStringLiteral("Κλείσιμο"), QStringLiteral("Κλείνει το παράθυρο"));
    m_end->setLook(CommandButton::Look::Quiet);
    for (CommandButton* const each : m_commands) {
        if (each == m_new || each == m_firstUser)
            column->addSpacing(between);
        if (each == m_end)
            column->addStretch(1);
        column->addWidget(each);
    }
    return column;
}

void BooksWindow::connectCommands()
{
    m_gate.connect(m_open, {}, [this] { openSelected(); });
    m_gate.connectWindow(m_new, {}, [this] {
        NewBookWindow window(m_clock, this);
        if (window.exec() == QDialog::Accepted)
            take(window.made());
    });
    m_gate.connectWindow(m_fromBackup, {}, [this] {
        std::vector<KnownBook> books;
        guarded(this, [&] { books = m_choice.books(); });
        BackupWindow window(m_clock, std::move(books), this);
        if (window.exec() == QDialog::Accepted)
            take(window.made());
    });
    m_gate.connectWindow(m_fromOlder, {}, [this] {
        OlderBookWindow window(this);
        if (window.exec() == QDialog::Accepted)
            take(window.made());
    });
    m_gate.connectWindow(m_firstUser, {}, [this] {
        const QString folder = m_model->book(selectedRow()).settings.dataFolder;
        FirstUserWindow window{BookFiles(folder), m_clock, this};
        if (window.exec() == QDialog::Accepted)
            refill(folder);
    });
    m_gate.connectWindow(m_existing, {}, [this] { addExisting(); });
    m_gate.connect(m_sample, {}, [this] { makeSample(); });
    m_gate.connectWindow(m_forget, {}, [this] { forgetSelected(); });
    connect(m_end, &CommandButton::clicked, this, &BooksWindow::close);
}

void BooksWindow::refill(const QString& selected)
{
    std::vector<KnownBook> books;
    guarded(this, [&] { books = m_choice.books(); });
    m_model->setBooks(books);
    const int row = selected.isEmpty() ? 0 : std::max(0, m_model->rowOf(selected));
    m_list->setCurrentIndex(m_model->index(row, 0));
    followSelection();
    QWidget* const next = books.empty() ? static_cast<QWidget*>(m_new) : m_list;
    next->setFocus(Qt::OtherFocusReason); // never on to a button that nobody meant
    const auto look = [this, books = std::move(books)] {
        for (std::size_t i = 0; i < books.size() && !m_looks.isCancelled(); ++i)
            m_looks.tell([this, i, seen = lookAtBook(books[i].settings.dataFolder)] {
                m_model->setLook(static_cast<int>(i), seen);
            });
    };
    m_looks.start(look, [](const QString&) {});
}

int BooksWindow::selectedRow() const
{
    return m_list->currentIndex().isValid() ? m_list->currentIndex().row() : -1;
}

void BooksWindow::followProgram()
{
    if (const bool runs = m_choice.isProgramRunning(); runs != m_programRuns) {
        m_programRuns = runs;
        if (!runs && !QApplication::activeModalWidget())
            refill(); // what is open may have changed
        followSelection();
    }
}

/// While the program runs, the first button leads to it, and nothing else can be done.
void BooksWindow::followSelection()
{
    const int row = selectedRow();
    m_open->setCaption(m_programRuns ? QStringLiteral("Εμφάνιση") : QStringLiteral("Άνοιγμα"));
    m_open->setEnabled(m_programRuns || row >= 0);
    for (CommandButton* const each : {m_new, m_existing, m_fromBackup, m_fromOlder, m_sample})
        each->setEnabled(!m_programRuns);
    const auto& look = row < 0 ? std::nullopt : m_model->look(row);
    m_firstUser->setEnabled(!m_programRuns && look && look->condition == BookCondition::Ready && !look->hasUsers);
    m_forget->setEnabled(!m_programRuns && row >= 0);
    describe(row);
}

void BooksWindow::describe(int row)
{
    if (const auto present = m_programRuns ? m_choice.present() : std::nullopt) {
        m_about->setText(
            QStringLiteral("Το πρόγραμμα είναι ανοιχτό με το βιβλίο «%1» (%2). Για άλλο βιβλίο κλείστε το πρώτα.")
                .arg(shortened(present->heading), present->dataFolder));
        return;
    }
    QString text = row < 0 ? QString() : m_model->book(row).settings.dataFolder;
    if (const auto& look = row < 0 ? std::nullopt : m_model->look(row)) {
        if (const QString advice = adviceOn(*look, text); !advice.isEmpty())
            text = advice;
    }
    m_about->setText(text);
}

void BooksWindow::openSelected()
{
    if (m_programRuns) {
        Q_EMIT programAsked();
        return;
    }
    const int row = selectedRow();
    if (row < 0)
        return;
    const DataFolderSettings settings = m_model->book(row).settings;
    const auto& look = m_model->look(row);
    const BookFiles files(settings.dataFolder);
    finishRestore(files);
    if ((look && look->condition == BookCondition::Damaged) || !BookFiles::exists(files.mainDatabase())
        || files.isOldFormat()) {
        m_model->setLook(row, lookAtBook(settings.dataFolder));
        if (m_model->look(row)->condition != BookCondition::Ready) {
            showMessage(this, QMessageBox::Warning, QStringLiteral("Προσοχή"), QStringLiteral("Το βιβλίο δεν ανοίγει."),
                look->trouble.isEmpty() ? m_about->text() : look->trouble);
            return;
        }
    }
    Q_EMIT bookChosen(settings);
}

void BooksWindow::restore(const QString& backup)
{
    const auto present = m_choice.present();
    if (!present)
        return;
    m_gate.runWindow([] { return true; },
        [&] {
            const auto report = restoreWithProgress(this, m_run, backup, BookFiles(present->dataFolder), m_clock);
            refill(present->dataFolder);
            if (!report)
                return;
            ReportWindow(QStringLiteral("Επαναφορά"), *report, this).exec();
            Q_EMIT bookChosen(*present);
        });
}

void BooksWindow::take(const DataFolderSettings& book)
{
    guarded(this, [&] { m_choice.add(book); });
    refill(book.dataFolder);
    activateWindow(); // two windows that close at once may leave no window active
}

void BooksWindow::addExisting()
{
    const QString folder = askFolder(this, QStringLiteral("Υπάρχον βιβλίο"));
    if (folder.isEmpty())
        return;
    guarded(this, [&] {
        refuseUnrecordable(folder);
        if (const int row = m_model->rowOf(folder); row >= 0) {
            m_list->setCurrentIndex(m_model->index(row, 0));
            return;
        }
        const BookFiles files(folder);
        if (!BookFiles::exists(files.mainDatabase()))
            showMessage(this, QMessageBox::Information, QStringLiteral("Προσοχή"),
                QStringLiteral("Στον φάκελο δεν υπάρχει βιβλίο."),
                QStringLiteral("Ένα βιβλίο έχει μέσα στον φάκελό του το αρχείο lorvan.mdb.\n%1").arg(folder));
        else
            take({files.dataFolder(), DataFolderSettings::systemButtonFace, QFileInfo(folder).fileName()});
    });
}

void BooksWindow::makeSample()
{
    const QString folder = freeFolder(QStringLiteral("Δοκιμαστικό βιβλίο"));
    const ProgressTexts texts{title, QStringLiteral("Φτιάχνεται το δοκιμαστικό βιβλίο…"), {}};
    const bool isMade = runStoppable(
        m_run, this, texts, [&](const StepProgress&) { makeSampleBook(folder, m_clock.today(), sampleSeed); });
    if (!isMade)
        return;
    take({folder, DataFolderSettings::systemButtonFace, QStringLiteral("Δοκιμαστικό βιβλίο")});
    showMessage(
        this, QMessageBox::Information, title, QStringLiteral("Το δοκιμαστικό βιβλίο είναι έτοιμο."), sampleUsers());
}

void BooksWindow::forgetSelected()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    const DataFolderSettings settings = m_model->book(row).settings;
    if (!askOkCancel(this, QMessageBox::Question, QStringLiteral("Αφαίρεση από τη λίστα"),
            QStringLiteral("Να αφαιρεθεί το «%1» από τη λίστα;").arg(shortened(settings.heading)),
            QStringLiteral("Τα αρχεία του μένουν στον φάκελο %1.").arg(settings.dataFolder), DefaultAnswer::No))
        return;
    guarded(this, [&] { m_choice.forget(settings.dataFolder); });
    refill();
}

void BooksWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event))
        event->accept(); // the list has told of it already
    else if (event->key() == Qt::Key_Delete && m_list->hasFocus())
        m_forget->click();
    else
        QDialog::keyPressEvent(event);
}

void BooksWindow::reject()
{
    close();
}

void BooksWindow::closeEvent(QCloseEvent* event)
{
    m_run.cancel();
    m_looks.cancel();
    event->accept();
    Q_EMIT closed();
}

} // namespace lorvan

#include "main/backup_now_window.h"

#include "backup/book_backup.h"
#include "backup/daily_backup.h"
#include "controls/command_button.h"
#include "controls/guarded_window.h"
#include "controls/path_label.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/date_text.h"
#include "preview/folder_dialog.h"

#include <QGridLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{600, 250};
constexpr int margin = 16;
constexpr int betweenControls = 8;
const QString title = QStringLiteral("Αντίγραφο ασφαλείας");

QString lastBackupText(const BookFiles& book, QDate today)
{
    const QDate last = lastBackupOf(book, today);
    return last.isValid() ? QStringLiteral("Το τελευταίο είναι της %1.").arg(dateText(last))
                          : QStringLiteral("Δεν έχει γίνει ακόμη κανένα.");
}

} // namespace

BackupNowWindow::BackupNowWindow(BookFiles book, KeyRing& keys, Clock clock, QWidget* parent)
    : QDialog(parent)
    , m_book(std::move(book))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_second(m_book)
    , m_gate(this)
    , m_place(new PathLabel(ColourRole::Text))
    , m_choose(newCommand("choosePlace", {}, QStringLiteral("Επιλογή…"),
          QStringLiteral("Φάκελος σε άλλον δίσκο ή USB, για ένα δεύτερο αντίγραφο")))
    , m_forget(newCommand("forgetPlace", {}, QStringLiteral("Κανένα"), QStringLiteral("Χωρίς δεύτερο αντίγραφο")))
    , m_state(new ThemedLabel({}, ColourRole::Muted))
    , m_made(new PathLabel(ColourRole::Text))
    , m_now(newCommand("backUpNow", QStringLiteral("check"), QStringLiteral("Αντίγραφο τώρα"),
          QStringLiteral("Γράφει το βιβλίο σε ένα αρχείο, το ανοίγει ξανά και το ελέγχει")))
    , m_close(newCommand("close", {}, QStringLiteral("Κλείσιμο"), QStringLiteral("Επιστροφή")))
{
    setObjectName(QStringLiteral("backupNow"));
    setWindowTitle(title);
    setModal(true);
    layOut();
    showPlaces();
    m_state->setText(lastBackupText(m_book, m_clock.today()));
    m_gate.connectWindow(m_choose, {}, [this] { choosePlace(); });
    m_gate.connect(m_forget, {}, [this] { forgetPlace(); });
    m_gate.connectWindow(m_now, {}, [this] { guarded(this, [this] { backUp(); }); });
    connect(m_close, &CommandButton::clicked, this, &QDialog::accept);
    m_now->setFocus(Qt::OtherFocusReason);
}

void BackupNowWindow::layOut()
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(betweenControls);
    auto* const grid = new QGridLayout;
    addPlaces(*grid);
    rows->addLayout(grid);
    rows->addSpacing(betweenControls);
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setWordWrap(true);
    rows->addWidget(m_state);
    m_made->setObjectName(QStringLiteral("made"));
    m_made->hide();
    rows->addWidget(m_made);
    rows->addStretch(1);
    rows->addLayout(commandRow());
    chainTabOrder({m_now, m_choose, m_forget, m_place, m_made, m_close});
    sizeWithin(this, firstSize);
}

void BackupNowWindow::addPlaces(QGridLayout& grid)
{
    auto* const own = new PathLabel(ColourRole::Text);
    own->setObjectName(QStringLiteral("ownPlace"));
    own->setPath(backupFolder(m_book));
    m_place->setObjectName(QStringLiteral("secondPlace"));
    m_place->setEmptyText(QStringLiteral("δεν έχει οριστεί φάκελος"));
    grid.setHorizontalSpacing(betweenControls);
    grid.setColumnStretch(1, 1);
    grid.addWidget(new ThemedLabel(QStringLiteral("Στον φάκελο του βιβλίου"), ColourRole::Text), 0, 0);
    grid.addWidget(own, 0, 1, 1, 3);
    grid.addWidget(new ThemedLabel(QStringLiteral("Και δεύτερο στο"), ColourRole::Text), 1, 0);
    grid.addWidget(m_place, 1, 1);
    grid.addWidget(m_choose, 1, 2);
    grid.addWidget(m_forget, 1, 3);
    m_choose->setSmall(true);
    m_forget->setSmall(true);
}

QLayout* BackupNowWindow::commandRow()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(betweenControls);
    m_now->setLook(CommandButton::Look::Solid);
    m_now->setDefault(true);
    m_close->setLook(CommandButton::Look::Quiet);
    row->addStretch(1);
    row->addWidget(m_now);
    row->addWidget(m_close);
    return row;
}

void BackupNowWindow::showPlaces()
{
    const QString folder = m_second.folder();
    m_place->setPath(folder);
    m_place->setAccessibleName(folder.isEmpty() ? QStringLiteral("Κανένα δεύτερο αντίγραφο") : folder);
    m_forget->setEnabled(!folder.isEmpty());
}

void BackupNowWindow::choosePlace()
{
    const QString folder = askFolder(this, QStringLiteral("Φάκελος σε άλλον δίσκο ή USB"), m_second.folder());
    if (folder.isEmpty())
        return;
    guarded(this, [&] {
        m_second.choose(folder);
        showPlaces();
    });
}

void BackupNowWindow::forgetPlace()
{
    m_second.choose({});
    showPlaces();
    m_choose->setFocus(Qt::OtherFocusReason);
}

void BackupNowWindow::backUp()
{
    MadeBackup backup;
    const ProgressTexts texts{title, QStringLiteral("Αντιγράφεται το βιβλίο…"), QStringLiteral("Μεγαμπάιτ")};
    const bool isDone = runStoppable(m_run, this, texts,
        [&](const StepProgress& progress) { backup = makeBackups(m_book, m_keys, m_clock.now(), m_second, progress); });
    if (!isDone)
        return tell(QStringLiteral("Το αντίγραφο ακυρώθηκε."), {});
    Q_EMIT made();
    QString text = QStringLiteral("Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε.");
    if (!backup.second.isEmpty())
        text += QStringLiteral(" Γράφτηκε και στο δεύτερο μέρος.");
    else if (backup.isSecondGivenUp)
        text += QStringLiteral(" Το δεύτερο ακυρώθηκε.");
    else if (backup.trouble.isEmpty() && !m_second.folder().isEmpty())
        text += QStringLiteral(" Ο δεύτερος φάκελος δεν βρίσκεται τώρα στη θέση του.");
    tell(text, backup.path);
    m_close->setFocus(Qt::OtherFocusReason);
    if (!backup.trouble.isEmpty())
        showMessage(
            this, QMessageBox::Warning, title, QStringLiteral("Το δεύτερο αντίγραφο δεν έγινε."), backup.trouble);
}

void BackupNowWindow::tell(const QString& text, const QString& path)
{
    m_state->setText(text);
    m_made->setPath(path);
    m_made->setVisible(!path.isEmpty());
}

} // namespace lorvan

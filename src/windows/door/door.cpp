#include "door/door.h"

#include "book/book_files.h"
#include "book/pending_restore.h"
#include "books/book_look.h"
#include "books/program_files.h"
#include "controls/guarded_window.h"
#include "door/books_window.h"
#include "platform/work.h"
#include "start/coming_forward.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

namespace lorvan {
namespace {

constexpr int notUnderstood = 2;

} // namespace

Door::Door(const QString& doorFile, Clock clock)
    : m_clock(std::move(clock))
    , m_programFile(besideProgram(doorFile, cashBookProgram))
    , m_instance(doorFile)
    , m_choice(m_programFile)
{
}

Door::~Door() = default;

std::optional<int> Door::start(const QStringList& words, bool wantsChoice)
{
    const QString option = words.value(0);
    const bool opens = option == openOption && words.size() == 2;
    const bool restores = option == restoreOption && words.size() == 2;
    if (!words.isEmpty() && !opens && !restores && !(option == chooseOption && words.size() == 1)) {
        std::fputs("lorvan-books [--choose | --open ΦΑΚΕΛΟΣ | --restore ΑΡΧΕΙΟ]\n", stderr);
        return notUnderstood;
    }
    if (!m_instance.isOnlyInstance()) {
        m_instance.callOther(activationToken());
        return 0;
    }
    m_instance.whenCalled([this](const QByteArray& token) { bringForward(m_window.get(), token); });
    if (m_choice.isProgramRunning()) {
        show();
        callProgram();
    } else if (opens)
        openFolder(words.at(1));
    else if (restores)
        restore(words.at(1));
    else {
        std::optional<KnownBook> only;
        guarded(nullptr, [&] { only = m_choice.onlyBook(); });
        if (only && !wantsChoice && option != chooseOption)
            open(only->settings);
        else
            show();
    }
    return m_window ? std::nullopt : std::optional(0);
}

void Door::openFolder(const QString& folder)
{
    const QString path = QFileInfo(folder).absoluteFilePath();
    DataFolderSettings book;
    const auto look = [&] {
        finishRestore(BookFiles(path));
        refuseUnopenable(path);
        book = m_choice.settingsOf(path);
    };
    if (guarded(nullptr, look))
        open(book);
    else
        show();
}

/// Once the window shows: its work asks and tells over it.
void Door::restore(const QString& backup)
{
    show();
    const QString path = QFileInfo(backup).absoluteFilePath();
    QMetaObject::invokeMethod(
        m_window.get(), [this, path] { m_window->restore(path); }, Qt::QueuedConnection);
}

void Door::show()
{
    if (m_window)
        return;
    m_window = std::make_unique<BooksWindow>(m_choice, m_clock);
    connect(m_window.get(), &BooksWindow::bookChosen, this, &Door::open);
    connect(m_window.get(), &BooksWindow::programAsked, this, &Door::callProgram);
    connect(m_window.get(), &BooksWindow::closed, this, [] { QApplication::exit(); });
    m_window->show();
    m_window->refill();
}

void Door::callProgram()
{
    m_choice.callProgram(activationToken());
}

/// If the program cannot be started, the window says why.
void Door::open(const DataFolderSettings& book)
{
    const auto choose = [&] {
        if (!canRun(m_programFile))
            throw Refused(QStringLiteral("Το πρόγραμμα %1 δεν βρέθηκε.").arg(m_programFile));
        const auto guard = m_choice.choose(book, m_clock.now());
        becomeProgram(m_programFile, {});
    };
    if (!guarded(m_window.get(), choose))
        show();
}

void Door::end()
{
    if (m_window)
        m_window->close();
    else
        QApplication::exit();
}

} // namespace lorvan

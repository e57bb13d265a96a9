#include "start/program.h"

#include "book/book_opening.h"
#include "book/book_recovery.h"
#include "book/program_folder.h"
#include "books/program_files.h"
#include "controls/guarded_window.h"
#include "controls/key_binding.h"
#include "help/help_window.h"
#include "look/message_window.h"
#include "look/theme.h"
#include "main/kentrikh.h"
#include "platform/machine_identity.h"
#include "platform/stop_check.h"
#include "proof/opening_balance.h"
#include "start/coming_forward.h"
#include "start/fr_ervthsh_update.h"
#include "start/termination_signals.h"
#include "users/login.h"

#include <QApplication>
#include <QFileInfo>

namespace lorvan {
namespace {

/// 0x00BBGGRR, as in the path file.
QColor colourOf(std::int32_t stored)
{
    return QColor(stored & 0xFF, (stored >> 8) & 0xFF, (stored >> 16) & 0xFF);
}

bool isWanted()
{
    return !TerminationSignals::haveCome();
}

} // namespace

Program::Program(const QString& programFile, Clock clock)
    : m_programFile(programFile)
    , m_clock(std::move(clock))
    , m_instance(programFile)
    , m_keys(bookPassword())
{
}

Program::~Program() = default;

bool Program::start()
{
    if (!m_instance.isOnlyInstance()) {
        m_instance.callOther(activationToken());
        return false;
    }
    m_instance.whenCalled([this](const QByteArray& token) {
        bringForward(m_mainWindow ? static_cast<QWidget*>(m_mainWindow.get()) : m_login.get(), token);
    });
    const StopCheck stop(isWanted);
    const StartDecision decision = decideStart(programFolder(QFileInfo(m_programFile).absolutePath()));
    m_settings = decision.settings;
    if (!isWanted() || !announce(decision))
        return false;
    showSignIn();
    return isWanted();
}

bool Program::announce(const StartDecision& decision)
{
    switch (decision.outcome) {
    case StartOutcome::SignIn:
        return true;
    case StartOutcome::PathWritten:
        showMessage(nullptr, QMessageBox::Information, QStringLiteral("Προσοχή"),
            QStringLiteral("Η διαδρομή για τη βάση δεν βρέθηκε, και ορίζετε ως τρέχουσα η διαδρομή του προγράμματος\r"
                           " H διαδρομή φυλάσετε μέσα στο αρχείο diadromh.dat"));
        return false;
    case StartOutcome::PathUnwritable:
        showMessage(nullptr, QMessageBox::Warning, QStringLiteral("Προσοχή"),
            QStringLiteral("Ο φάκελος του προγράμματος %1 έχει στο όνομά του χαρακτήρες που δεν χωρούν στο αρχείο"
                           " diadromh.dat. Μεταφέρετε το πρόγραμμα σε φάκελο με ελληνικό ή λατινικό όνομα.")
                .arg(m_settings.dataFolder));
        return false;
    case StartOutcome::DatabaseMissing:
        showMessage(nullptr, QMessageBox::Critical, QStringLiteral("Προσοχή στη διαδρομή"),
            QStringLiteral("Τα αρχεία του προγράμματος δεν βρέθηκαν. Ορίστε τη διαδρομή ξανά."),
            QStringLiteral("Φάκελος: %1").arg(m_settings.dataFolder));
        return false;
    case StartOutcome::RestoreUnfinished:
        showMessage(nullptr, QMessageBox::Critical, QStringLiteral("Προσοχή στη διαδρομή"), decision.trouble);
        return false;
    case StartOutcome::OldFormat:
        showMessage(nullptr, QMessageBox::Critical, QStringLiteral("Προσοχή στη διαδρομή"),
            QStringLiteral("Το βιβλίο στον φάκελο %1 είναι στην παλιά μορφή. Μεταφέρεται στη νέα μορφή με την εντολή\r"
                           "lorvan-data import ΠΑΛΙΟΣ_ΦΑΚΕΛΟΣ ΝΕΟΣ_ΦΑΚΕΛΟΣ")
                .arg(m_settings.dataFolder));
        return false;
    }
    return false;
}

void Program::showSignIn()
{
    const BookFiles files(m_settings.dataFolder);
    m_keys.prepare(files.auxiliaryDatabase());
    m_keys.prepare(files.mainDatabase());
    guarded(nullptr, [&] {
        const StopCheck stop(isWanted);
        UsageMarker marker(files.usageMarker(), machineIdentity());
        recoverBook(files, m_keys, marker);
    });
    m_login = std::make_unique<Login>(files, m_keys, m_clock);
    connect(m_login.get(), &Login::signedIn, this, &Program::openMainWindow);
    connect(m_login.get(), &Login::abandoned, this, &Program::end);
    connect(m_login.get(), &Login::restoreAsked, this, [this](const QString& backup) {
        m_backup = backup;
        end();
    });
    if (canRun(besideProgram(m_programFile, doorProgram)))
        m_login->offerRestore(m_settings.heading);
    bindKeys(KeyUse::Manual, m_login.get(), Qt::WindowShortcut, [this] {
        if (!m_help)
            m_help = std::make_unique<HelpWindow>(HelpWindow::Print(), m_login.get());
        m_help->present(QStringLiteral("Είσοδος"));
    });
    m_login->show();
}

void Program::openMainWindow(const UserSession& session)
{
    m_help.reset();
    m_login->hide();
    const StopCheck stop(isWanted);
    try {
        const BookFiles files(m_settings.dataFolder);
        UsageMarker marker(files.usageMarker(), machineIdentity());
        const auto ask = [this] { return askOpeningBalance(m_clock); };
        const Authority authority = Authority::user(session.user, session.rights, m_clock);
        Book book = openBook(files, m_keys, marker, authority, ask, openingSteps());
        if (m_settings.hasOwnColour())
            Theme::instance().setPageColour(colourOf(m_settings.backgroundColour));
        m_mainWindow =
            std::make_unique<Kentrikh>(std::move(book), std::move(marker), authority, m_settings, m_clock, m_keys);
        if (canRun(besideProgram(m_programFile, doorProgram)))
            m_mainWindow->offerBooks();
        connect(m_mainWindow.get(), &Kentrikh::closed, this, &Program::end);
        m_mainWindow->initialise();
    } catch (const OpeningBalanceNotGiven&) {
        end();
        return;
    } catch (const std::exception& failure) {
        if (isWanted())
            showStartFailure(failure);
        end();
        return;
    }
    m_mainWindow->show();
    m_login.release()->deleteLater(); // its own signal is still being delivered
}

QStringList Program::next() const
{
    if (!m_backup.isEmpty())
        return {besideProgram(m_programFile, doorProgram), restoreOption, m_backup};
    if (!m_mainWindow || !m_mainWindow->leadsToBooks())
        return {};
    return {besideProgram(m_programFile, doorProgram), chooseOption};
}

void Program::end()
{
    if (m_login)
        m_login->hide(); // actions in progress there check whether it is still shown
    if (m_mainWindow && !m_mainWindow->isClosed())
        m_mainWindow->end(); // returns here when the marker is released
    else
        QApplication::exit();
}

} // namespace lorvan

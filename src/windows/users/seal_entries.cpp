#include "users/seal_entries.h"

#include "book/lock_trust.h"
#include "cashbook/day_seal.h"
#include "controls/action_gate.h"
#include "look/message_window.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "proof/findings_text.h"
#include "proof/trail_acceptance.h"
#include "proof/trail_audit.h"

#include <QCoreApplication>
#include <QMenu>
#include <QPointer>

namespace lorvan {
namespace {

constexpr int daysAtOnce = 100;
constexpr std::size_t linesOfKind = 5;

const QString acceptTitle = QStringLiteral("Αποδοχή");
const QString sealTitle = QStringLiteral("Σφράγιση παλαιών ημερών");

BookFindings findingsIn(Connection& book)
{
    BookFindings findings;
    readSteadily(book, [&] {
        const Transaction reading(book, Transaction::View::Steady);
        findings = auditTrail(book).findings();
    });
    return findings;
}

QString textOf(const BookFindings& findings)
{
    QStringList lines;
    for (const CheckLine& line : findingLines(findings, {.repair = {}, .longest = linesOfKind}))
        lines += line.text;
    return lines.join(u'\n');
}

} // namespace

SealEntries::SealEntries(
    BookFiles files, KeyRing& keys, Clock clock, const ActionGate& gate, QMenu* menu, QWidget* owner)
    : QObject(owner)
    , m_files(std::move(files))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_gate(gate)
    , m_menu(menu)
    , m_owner(owner)
{
    addEntry(QStringLiteral("accept"), acceptTitle, &SealEntries::acceptFindings);
    addEntry(QStringLiteral("sealOlder"), sealTitle, &SealEntries::sealOlder);
}

QWidget* SealEntries::window() const
{
    return m_owner->window();
}

void SealEntries::addEntry(const QString& objectName, const QString& text, void (SealEntries::*step)())
{
    QAction* const entry = m_menu->addAction(text);
    entry->setObjectName(objectName);
    connect(entry, &QAction::triggered, this, [this, step] { m_gate.run([this, step] { (this->*step)(); }); });
}

void SealEntries::acceptFindings()
{
    admitUnguarded(m_files);
    Connection book = openBoth(m_files, m_keys);
    const BookFindings findings = findingsIn(book);
    if (findings.isInOrder()) {
        showMessage(window(), QMessageBox::Information, acceptTitle, QStringLiteral("Δεν υπάρχει τίποτα προς αποδοχή."),
            textOf(findings));
        return;
    }
    if (!askOkCancel(window(), QMessageBox::Warning, acceptTitle,
            QStringLiteral("Να γίνουν αποδεκτά όσα δεν συμφωνούν με το ημερολόγιο και τις σφραγίδες;"),
            textOf(findings), DefaultAnswer::No))
        return;
    const Acceptance accepted = acceptFaults(book, Authority::administrator(m_clock));
    showMessage(window(), QMessageBox::Information, acceptTitle,
        QStringLiteral("Ευρήματα που έγιναν αποδεκτά και γράφτηκαν στο ημερολόγιο: %1").arg(accepted.faults),
        missingTablesText(accepted));
}

void SealEntries::sealOlder()
{
    if (!askYesNo(window(), QMessageBox::Question, sealTitle,
            QStringLiteral("Να σφραγιστούν οι ημέρες που έχουν κλείσει χωρίς σφραγίδα;"), DefaultAnswer::Yes))
        return;
    admitUnguarded(m_files);
    Connection book = openBoth(m_files, m_keys);
    const QPointer<QWidget> shown = window();
    int days = 0;
    while (const int more = sealOlderDays(book, Authority::administrator(m_clock), daysAtOnce)) {
        days += more;
        QCoreApplication::processEvents();
        if (!shown || !shown->isVisible())
            return;
    }
    showMessage(window(), QMessageBox::Information, sealTitle, QStringLiteral("Ημέρες που σφραγίστηκαν: %1").arg(days));
}

} // namespace lorvan

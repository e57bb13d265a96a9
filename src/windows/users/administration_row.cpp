#include "users/administration_row.h"

#include "book/book_recovery.h"
#include "book/lock_trust.h"
#include "cashbook/cash_closing.h"
#include "controls/command_button.h"
#include "controls/guarded_window.h"
#include "controls/path_label.h"
#include "look/message_window.h"
#include "marker/usage_marker.h"
#include "platform/authority.h"
#include "platform/engine/connection.h"
#include "users/administration.h"

#include <QCoreApplication>
#include <QHBoxLayout>

namespace lorvan {
namespace {

constexpr int betweenControls = 8;
constexpr int aroundCopy = 8;
constexpr qreal copyType = 0.85;

} // namespace

AdministrationRow::AdministrationRow(BookFiles files, KeyRing& keys, Clock clock, QWidget* parent)
    : QWidget(parent)
    , m_files(std::move(files))
    , m_keys(keys)
    , m_clock(std::move(clock))
    , m_copyCaption(new ThemedLabel(
          QStringLiteral("Αντίγραφο πριν από τη διαγραφή:"), ColourRole::Muted, copyType, QFont::Normal, this))
    , m_copyPath(new PathLabel(ColourRole::Text, copyType, this))
{
    m_copyPath->setObjectName(QStringLiteral("copyPath"));
}

void AdministrationRow::layOut(const std::array<CommandButton*, 3>& commands, CommandButton* beside)
{
    m_delete = commands.back();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(betweenControls);
    row->addWidget(commands[0]);
    row->addWidget(commands[1]);
    row->addWidget(beside);
    row->addSpacing(aroundCopy);
    row->addLayout(copyLines(), 1);
    row->addSpacing(aroundCopy);
    row->addWidget(m_delete);
}

/// Takes its room from the start, so that nothing moves when the lines are filled.
QLayout* AdministrationRow::copyLines()
{
    QSizePolicy roomKept = m_copyCaption->sizePolicy();
    roomKept.setRetainSizeWhenHidden(true);
    m_copyCaption->setSizePolicy(roomKept);
    m_copyCaption->setIndent(PathLabel::inset);
    m_copyCaption->hide();
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addWidget(m_copyCaption);
    lines->addWidget(m_copyPath);
    return lines;
}

void AdministrationRow::unlock()
{
    guarded(window(), [this] {
        UsageMarker::unlock(m_files.usageMarker());
        UsageMarker marker(m_files.usageMarker(), machineIdentity());
        recoverBook(m_files, m_keys, marker);
        showMessage(
            window(), QMessageBox::Warning, QStringLiteral("Ξεκλείδωμα βάσης"), QStringLiteral("Η βάση ξεκλείδωσε "));
    });
}

void AdministrationRow::closeDays()
{
    if (!askYesNo(window(), QMessageBox::Question, QStringLiteral("Κλείσιμο ταμείων"),
            QStringLiteral("Να κλείσουν όλα τα ανοικτά ταμεία μέχρι σήμερα;"), DefaultAnswer::Yes))
        return;
    guarded(window(), [this] {
        Connection book = openUnguarded(m_files, m_keys);
        closeOpenDays(book, Authority::administrator(m_clock), [this] {
            QCoreApplication::processEvents();
            return window()->isVisible();
        });
    });
}

void AdministrationRow::deleteData()
{
    if (!askYesNo(window(), QMessageBox::Critical, QStringLiteral("Προσοχή ΔΙΑΓΡΑΦΗ"),
            QStringLiteral("Είσαι σίγουρος ΝΑ ΓΙΝΕΙ Η ΔΙΑΓΡΑΦΗ ΤΗΣ ΒΑΣΗΣ ΚΑΙ ΤΩΝ ΣΤΟΙΧΕΊΩΝ;"), DefaultAnswer::No))
        return;
    const bool hadFocus = window()->focusWidget() == m_delete;
    m_delete->setEnabled(false);
    guarded(window(), [this] {
        admitUnguarded(m_files);
        m_copyPath->setPath(deleteAllData(m_files, m_keys, Authority::administrator(m_clock)).mainDatabase);
        m_copyCaption->show();
    });
    m_delete->setEnabled(true);
    if (hadFocus)
        m_delete->setFocus(Qt::OtherFocusReason);
}

} // namespace lorvan

#include "controls/guarded_window.h"

#include "book/book_opening.h"
#include "book/failure_text.h"
#include "look/message_window.h"
#include "platform/confirmation.h"

namespace lorvan {

void showFailure(QWidget* parent, const std::exception& failure)
{
    showMessage(parent, QMessageBox::Warning, QStringLiteral("Προσοχή"), failureText(failure));
}

void tellUnconfirmed(QWidget* parent)
{
    if (takeUnconfirmed())
        showMessage(parent, QMessageBox::Warning, QStringLiteral("Προσοχή"),
            QStringLiteral("Η αλλαγή γράφτηκε, αλλά ο δίσκος δεν επιβεβαίωσε ότι θα μείνει μετά από μια διακοπή"
                           " ρεύματος. Ελέγξτε τον δίσκο."));
}

void showStartFailure(const std::exception& failure)
{
    if (dynamic_cast<const UpgradeMustWait*>(&failure)) {
        showMessage(nullptr, QMessageBox::Information, QStringLiteral("Αδύνατη η πρόσβαση"),
            QString::fromUtf8(failure.what()),
            QStringLiteral("Η βάση πρέπει πρώτα να αναβαθμιστεί. Ανοίξτε ξανά το πρόγραμμα όταν θα είναι ελεύθερη."));
        return;
    }
    showMessage(nullptr, QMessageBox::Critical, QStringLiteral("Προσοχή στο Path"),
        QStringLiteral("Δεν βρέθηκε η βάση δεδομένων, ενημερώστε το registry"), failureText(failure));
}

} // namespace lorvan

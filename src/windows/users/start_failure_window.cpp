#include "users/start_failure_window.h"

#include "book/book_opening.h"
#include "book/failure_text.h"
#include "look/message_window.h"

namespace lorvan {

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

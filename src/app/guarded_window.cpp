#include "app/guarded_window.h"

#include "app/failure_text.h"
#include "platform/confirmation.h"
#include "platform/message_window.h"

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

} // namespace lorvan

#include "controls/guarded_window.h"

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

} // namespace lorvan

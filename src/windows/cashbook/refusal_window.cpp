#include "cashbook/refusal_window.h"

#include "look/message_window.h"

namespace lorvan {

void explainRefusal(QWidget* parent, MovementRefusal refusal, RefusedOperation operation)
{
    const QString attention = QStringLiteral("Προσοχή");
    const auto inform = [parent](const QString& title, const QString& text) {
        showMessage(parent, QMessageBox::Information, title, text);
    };
    switch (refusal) {
    case MovementRefusal::DayIsClosed:
        if (operation == RefusedOperation::Insert)
            inform(attention, QStringLiteral("Ο χρήστης δεν έχει το δικαίωμα της εισαγωγής"));
        else
            explainClosedDay(parent);
        break;
    case MovementRefusal::DateIsInvalid:
        inform(QStringLiteral("Λάθος στην ημερομηνία"), QStringLiteral("Η ημερομηνία δεν είναι σωστή"));
        break;
    case MovementRefusal::NoCode:
        inform(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Δεν έχετε δώσει κωδικό κίνησης"));
        break;
    case MovementRefusal::CodeHasChanged:
        inform(QStringLiteral("Λάθος κωδικός"), QStringLiteral("Ο κωδικός έχει αλλάξει ενημερώστε ξανά!"));
        break;
    case MovementRefusal::NoDescription:
        inform(QStringLiteral("Λάθος στην περιγραφή"), QStringLiteral("Δεν υπάρχει περιγραφή της κίνησης"));
        break;
    case MovementRefusal::MovementIsGone:
        inform(attention, QStringLiteral("Η κίνηση δεν υπάρχει πια. Την έχει διαγράψει άλλος χρήστης."));
        break;
    case MovementRefusal::MovementIsAnother: // an undo or a redo, which explains itself
        break;
    }
}

void explainClosedDay(QWidget* parent)
{
    showMessage(parent, QMessageBox::Critical, QStringLiteral("Προσοχή"),
        QStringLiteral("Το ταμείο έχει κλείσει και δεν έχετε δικαίωμα να το μεταβάλετε"));
}

} // namespace lorvan

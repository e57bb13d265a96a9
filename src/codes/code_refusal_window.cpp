#include "codes/code_refusal_window.h"

#include "platform/message_window.h"

namespace lorvan {
namespace {

QString textOf(CodeRefusal refusal)
{
    switch (refusal) {
    case CodeRefusal::Incomplete:
        return QStringLiteral("Ο κωδικός και η περιγραφή είναι απαραίτητα στοιχεία");
    case CodeRefusal::NoWholeNumber:
        return QStringLiteral("Ο κωδικός πρέπει να είναι ακέραιος αριθμός, από -2147483648 έως 2147483647");
    case CodeRefusal::CodeExists:
        return QStringLiteral("Ο κωδικός υπάρχει ήδη καταχωρημένος");
    case CodeRefusal::DescriptionExists:
        return QStringLiteral("Η περιγραφή του κωδικού υπάρχει ήδη καταχωρημένη");
    case CodeRefusal::UnknownGroup:
        return QStringLiteral("Δεν βρέθηκε η ομάδα στη λίστα με τις ομάδες, επιλέξτε  ξανά!");
    case CodeRefusal::IsUsed:
        return QStringLiteral("Ο κωδικός χρεισιμοποιήτε στις κινήσεις του ταμείου και δεν μπορεί να διαγραφεί !");
    case CodeRefusal::IsGone:
        return QStringLiteral("Ο κωδικός δεν υπάρχει πια. Τον έχει διαγράψει άλλος χρήστης.");
    }
    return {};
}

} // namespace

void explainCodeRefusal(QWidget* parent, CodeRefusal refusal)
{
    const auto icon = refusal == CodeRefusal::UnknownGroup ? QMessageBox::Critical : QMessageBox::Information;
    showMessage(parent, icon, QStringLiteral("Προσοχή"), textOf(refusal));
}

} // namespace lorvan

#include "codes/code_refusal_window.h"

#include "look/message_window.h"

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
    case CodeRefusal::IsAnother: // an undo or a redo, which explains itself
    case CodeRefusal::MovementsDiffer:
        break;
    }
    return {};
}

QString movements(qint64 number)
{
    return number == 1 ? QStringLiteral("1 κίνηση") : QStringLiteral("%1 κινήσεις").arg(number);
}

QString groupEffect(const ModificationEffects& effects)
{
    if (effects.moving == 0 && !effects.groupDiffers)
        return {};
    const bool alone = effects.moving == 0;
    const QString who =
        alone ? QStringLiteral("Ο κωδικός") : QStringLiteral("Ο κωδικός και ") + movements(effects.moving);
    const QString where = effects.group.isEmpty()
        ? (alone ? QStringLiteral(" θα μείνει χωρίς ομάδα") : QStringLiteral(" θα μείνουν χωρίς ομάδα"))
        : (alone ? QStringLiteral(" θα ανήκει") : QStringLiteral(" θα ανήκουν"))
            + QStringLiteral(" στην ομάδα «%1»").arg(effects.group);
    return who + where
        + (effects.groupDiffers ? QStringLiteral(", αν και το πεδίο γράφει άλλο.") : QStringLiteral("."));
}

QString effectsText(const ModificationEffects& effects)
{
    QStringList lines;
    if (effects.codeExists)
        lines += QStringLiteral("Υπάρχει ήδη άλλος κωδικός %1.").arg(effects.code);
    if (effects.descriptionExists)
        lines += QStringLiteral("Την ίδια περιγραφή έχει ήδη άλλος κωδικός.");
    if (effects.keeping != 0)
        lines += QStringLiteral("Μένουν με τον παλιό αριθμό %1: %2.")
                     .arg(effects.formerCode)
                     .arg(movements(effects.keeping));
    if (const QString group = groupEffect(effects); !group.isEmpty())
        lines += group;
    return lines.join(u'\n');
}

} // namespace

void explainCodeRefusal(QWidget* parent, CodeRefusal refusal)
{
    const auto icon = refusal == CodeRefusal::UnknownGroup ? QMessageBox::Critical : QMessageBox::Information;
    showMessage(parent, icon, QStringLiteral("Προσοχή"), textOf(refusal));
}

bool askModification(QWidget* parent, const ModificationEffects& effects)
{
    return askOkCancel(parent, QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
        QStringLiteral("Να γίνει η μεταβολή των στοιχείων;"), effectsText(effects));
}

} // namespace lorvan

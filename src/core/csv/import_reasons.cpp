#include "csv/import_reasons.h"

#include "platform/date_text.h"

namespace lorvan::import_reasons {

BadRow groupNumberTooSmall()
{
    return BadRow(QStringLiteral("aa: οι αριθμοί των ομάδων αρχίζουν από το 1"));
}

BadRow groupNameMissing()
{
    return BadRow(QStringLiteral("λείπει η ονομασία της ομάδας"));
}

BadRow groupNumberTaken(qint32 number, const QString& byName)
{
    return BadRow(QStringLiteral("ο αριθμός %1 ανήκει στην ομάδα «%2»").arg(number).arg(byName));
}

BadRow groupNameTaken(const QString& name)
{
    return BadRow(QStringLiteral("η ομάδα «%1» υπάρχει ήδη στο βιβλίο με άλλον αριθμό").arg(name));
}

BadRow groupUnknown(const QString& name)
{
    return BadRow(QStringLiteral("omada: δεν υπάρχει ομάδα «%1»").arg(name));
}

BadRow groupUnknown(qint32 number)
{
    return BadRow(QStringLiteral("aa_omadas: δεν υπάρχει ομάδα με αριθμό %1").arg(number));
}

BadRow groupAmbiguous(const QString& name)
{
    return BadRow(
        QStringLiteral("omada: περισσότερες ομάδες ονομάζονται «%1»· γράψτε τον αριθμό στη στήλη aa_omadas").arg(name));
}

BadRow codeDescriptionMissing()
{
    return BadRow(QStringLiteral("λείπει η περιγραφή του κωδικού"));
}

BadRow codeTaken(qint32 code, const QString& byDescription)
{
    return BadRow(QStringLiteral("ο κωδικός %1 υπάρχει ήδη με άλλα στοιχεία («%2»)").arg(code).arg(byDescription));
}

BadRow codeDescriptionTaken(const QString& description)
{
    return BadRow(QStringLiteral("η περιγραφή «%1» υπάρχει ήδη στο βιβλίο σε άλλον κωδικό").arg(description));
}

BadRow incomeAndExpense()
{
    return BadRow(QStringLiteral("έχει και έσοδα και έξοδα"));
}

BadRow movementRefused(MovementRefusal refusal, const MovementDraft& draft)
{
    switch (refusal) {
    case MovementRefusal::DayIsClosed:
        return dayIsClosed(draft.day);
    case MovementRefusal::CodeHasChanged:
    case MovementRefusal::NoCode:
        return BadRow(QStringLiteral("ο κωδικός %1 δεν υπάρχει ούτε στο βιβλίο ούτε στο kvdikoi.csv").arg(draft.code));
    case MovementRefusal::NoDescription:
        return BadRow(QStringLiteral("λείπει η περιγραφή της κίνησης"));
    case MovementRefusal::DateIsInvalid:
    case MovementRefusal::MovementIsGone:
    case MovementRefusal::MovementIsAnother:
        break;
    }
    return BadRow(QStringLiteral("η ημερομηνία δεν είναι σωστή"));
}

BadRow amountsTooLarge(QDate day)
{
    return BadRow(QStringLiteral("τα ποσά της ημέρας %1 είναι μαζί μεγαλύτερα από όσο μπορεί να κρατήσει το ταμείο")
                      .arg(dateText(day)));
}

BadRow dayIsClosed(QDate day)
{
    return BadRow(QStringLiteral("η ημέρα %1 είναι κλεισμένη· δεκτή γίνεται μόνο με την εντολή lorvan-data import-csv"
                                 " --closed-days")
                      .arg(dateText(day)));
}

BadRow openingDifferenceTaken(QDate day)
{
    return BadRow(QStringLiteral("το βιβλίο έχει ήδη άλλη διαφορά ανοίγματος για την %1").arg(dateText(day)));
}

BadRow balancesTooLarge()
{
    return BadRow(QStringLiteral("amount: τα υπόλοιπα γίνονται μεγαλύτερα από όσο μπορεί να κρατήσει το ταμείο"));
}

} // namespace lorvan::import_reasons

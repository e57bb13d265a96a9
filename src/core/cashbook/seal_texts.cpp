#include "cashbook/seal_texts.h"

#include "journal/check_code.h"

#include <QDateTime>
#include <QStringList>

namespace lorvan {

QString sealCodeText(const DaySeal& seal)
{
    return QStringLiteral("Κωδικός ελέγχου %1, έκδοση %2").arg(checkCode(seal.hash)).arg(seal.version);
}

QString sealOriginText(const DaySeal& seal)
{
    const QDateTime at = QDateTime::fromMSecsSinceEpoch(seal.at);
    return QStringLiteral("Σφραγίστηκε %1 από τον χρήστη %2 στον υπολογιστή %3")
        .arg(at.toString(QStringLiteral("dd-MM-yyyy HH:mm")), seal.user, seal.computer);
}

QString sealRemarkText(const DaySeal& seal)
{
    QStringList remarks;
    if (seal.isLate)
        remarks += QStringLiteral("Η ημέρα είχε κλείσει χωρίς σφραγίδα και σφραγίστηκε αργότερα.");
    if (seal.version > 1)
        remarks += QStringLiteral("Έκδοση %1: η ημέρα άλλαξε μετά το κλείσιμο και σφραγίστηκε ξανά.").arg(seal.version);
    return remarks.join(u'\r');
}

} // namespace lorvan

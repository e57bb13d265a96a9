#include "proof/proof_texts.h"

#include "platform/date_text.h"
#include "proof/findings_text.h"

#include <QLocale>
#include <QStringList>

namespace lorvan {
namespace {

using Kind = FindingKind;

QString magnitude(Currency amount)
{
    return exactAmountText(amount).remove(u'-');
}

QString balanceText(const Finding& finding)
{
    const QString day = storedDayText(finding.day);
    if (finding.isNoAmount)
        return QStringLiteral("Το υπόλοιπο της %1 είναι γραμμένο σε μορφή που δεν είναι ποσό").arg(day);
    try {
        return QStringLiteral("Το υπόλοιπο της %1 διαφέρει από τις κινήσεις κατά %2")
            .arg(day, magnitude(finding.stored.closingBalance - finding.expected.closingBalance));
    } catch (const CurrencyOverflow&) {
        return QStringLiteral("Το υπόλοιπο της %1 διαφέρει από τις κινήσεις").arg(day);
    }
}

QString sumsText(const Finding& finding)
{
    return QStringLiteral("Τα σύνολα της %1 διαφέρουν από τις κινήσεις της").arg(storedDayText(finding.day));
}

QString missingText(const Finding& finding)
{
    return QStringLiteral("Η %1 έχει κινήσεις, αλλά λείπει από τις ημέρες του ταμείου").arg(storedDayText(finding.day));
}

QString repeatedText(const Finding& finding)
{
    return QStringLiteral("Η %1 είναι γραμμένη %2 φορές στο ταμείο").arg(storedDayText(finding.day)).arg(finding.rows);
}

QString withoutDateText(const Finding&)
{
    return QStringLiteral("Στο ταμείο υπάρχει ημέρα χωρίς έγκυρη ημερομηνία");
}

QString tooLargeText(const Finding&)
{
    return QStringLiteral("Τα ποσά των κινήσεων ξεπερνούν όσα χωρά το ταμείο και τα υπόλοιπα δεν ελέγχθηκαν");
}

QString openingText(const Finding& finding)
{
    const Currency amount = finding.expected.closingBalance;
    return QStringLiteral("Από %1 τα υπόλοιπα έχουν %2 %3 από τις κινήσεις")
        .arg(storedDayText(finding.day), magnitude(amount),
            amount < Currency() ? QStringLiteral("λιγότερα") : QStringLiteral("παραπάνω"));
}

QString sealedDayText(const Finding& finding)
{
    return QStringLiteral("Η σφραγισμένη ημέρα %1 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day));
}

QString sealText(const Finding& finding)
{
    return QStringLiteral("Η σφραγίδα της %1 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day));
}

QString sealMissingText(const Finding& finding)
{
    return QStringLiteral("Η σφραγίδα της %1 λείπει: κάτι άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day));
}

QString carryText(const Finding& finding)
{
    return QStringLiteral(
        "Η μεταφορά στη σφραγισμένη %1 διαφέρει κατά %2 χωρίς αλλαγή που να το εξηγεί: κάτι άλλαξε από"
        " άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day), magnitude(finding.stored.closingBalance));
}

QString openingAlteredText(const Finding& finding)
{
    return QStringLiteral("Το υπόλοιπο ανοίγματος της %1 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day));
}

QString countText(const Finding& finding)
{
    return QStringLiteral("Η καταμέτρηση της %1 άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(storedDayText(finding.day));
}

QString sealWithoutJournalText(const Finding& finding)
{
    return QStringLiteral("Η εγγραφή της σφραγίδας της %1 λείπει από το ημερολόγιο").arg(storedDayText(finding.day));
}

QString journalText(const Finding& finding)
{
    return QStringLiteral("Το ημερολόγιο άλλαξε στην εγγραφή %1 από άλλο πρόγραμμα ή παλαιότερη έκδοση")
        .arg(finding.key);
}

/// The most telling first.
constexpr std::pair<Kind, QString (*)(const Finding&)> sentences[] = {{Kind::DayBalance, balanceText},
    {Kind::DaySums, sumsText}, {Kind::MissingDay, missingText}, {Kind::RepeatedDay, repeatedText},
    {Kind::DayWithoutDate, withoutDateText}, {Kind::SumTooLarge, tooLargeText}, {Kind::SealedDayAltered, sealedDayText},
    {Kind::OpeningAltered, openingAlteredText}, {Kind::CarryAltered, carryText}, {Kind::SealMissing, sealMissingText},
    {Kind::SealBroken, sealText}, {Kind::SealWithoutJournal, sealWithoutJournalText}, {Kind::CountAltered, countText},
    {Kind::JournalBroken, journalText}, {Kind::OpeningNotKept, openingText}};

QString othersText(std::int64_t days)
{
    if (days <= 0)
        return {};
    return days == 1 ? QStringLiteral(", και 1 ακόμη ημέρα") : QStringLiteral(", και %1 ακόμη ημέρες").arg(days);
}

QString reasonOf(Kind kind)
{
    if (kind == Kind::OpeningNotKept)
        return QStringLiteral(
            "Αν το ποσό είναι υπόλοιπο ανοίγματος, η «Διόρθωση» το καταχωρίζει. Με κλικ φαίνονται όλα.");
    if (kind >= Kind::JournalBroken)
        return QStringLiteral("Το ημερολόγιο και οι σφραγίδες λένε άλλα από όσα έχει το βιβλίο. Με κλικ φαίνονται όλα"
                              " όσα βρέθηκαν.");
    return QStringLiteral("Κάτι άλλαξε τις ημέρες του ταμείου χωρίς τις κινήσεις τους, ή το αντίθετο. Με κλικ φαίνονται"
                          " όλα όσα βρέθηκαν.");
}

QString counted(std::int64_t count, const QString& one, const QString& many)
{
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    return greek.toString(count) + u' ' + (count == 1 ? one : many);
}

} // namespace

QString correctionText(const DayCorrection& correction)
{
    const QString day = dateText(correction.day);
    const CashDayFigures& now = correction.corrected;
    if (!correction.former)
        return QStringLiteral("Η %1 έλειπε από τις ημέρες του ταμείου και γράφτηκε: υπόλοιπο %2")
            .arg(day, exactAmountText(now.closingBalance));
    const CashDayFigures& former = *correction.former;
    if (former.closingBalance != now.closingBalance)
        return QStringLiteral("Το υπόλοιπο της %1 διορθώθηκε από τις κινήσεις της: ήταν %2, έγινε %3")
            .arg(day, exactAmountText(former.closingBalance), exactAmountText(now.closingBalance));
    return QStringLiteral(
        "Τα σύνολα της %1 διορθώθηκαν από τις κινήσεις της: έσοδα %2 αντί για %3, έξοδα %4 αντί για %5")
        .arg(day, exactAmountText(now.income), exactAmountText(former.income), exactAmountText(now.expense),
            exactAmountText(former.expense));
}

Notice correctedNotice(const std::vector<DayCorrection>& corrections)
{
    QStringList all;
    for (const DayCorrection& each : corrections)
        all += correctionText(each);
    all += QStringLiteral(
        "Οι ημέρες αυτές δεν συμφωνούσαν με τις κινήσεις τους όταν τις είδατε. Με κλικ η γραμμή φεύγει.");
    return {correctionText(corrections.back()) + othersText(static_cast<std::int64_t>(corrections.size()) - 1),
        all.join(u'\n'), true, true};
}

QString provingText(const QString& advance)
{
    return QStringLiteral("Τα υπόλοιπα ελέγχονται στο παρασκήνιο: %1.").arg(advance);
}

QString provedText(const LastProof& proof)
{
    return QStringLiteral("Τα υπόλοιπα συμφωνούν με τις κινήσεις: %1, %2, %3. Ελέγχθηκαν στις %4.")
        .arg(counted(proof.movements, QStringLiteral("κίνηση"), QStringLiteral("κινήσεις")),
            counted(proof.days, QStringLiteral("ημέρα"), QStringLiteral("ημέρες")),
            counted(proof.seals, QStringLiteral("σφραγίδα"), QStringLiteral("σφραγίδες")),
            dateText(proof.at.date()) + proof.at.toString(QStringLiteral(" HH:mm")));
}

QString notProvedText(const QString& reason)
{
    return QStringLiteral("Τα υπόλοιπα δεν ελέγχθηκαν. ") + reason;
}

std::optional<Notice> proofNotice(const BalanceProof& proof)
{
    const auto& found = proof.findings.byKind();
    for (const auto& [kind, sentence] : sentences) {
        if (const auto list = found.find(kind); list != found.end())
            return Notice{
                sentence(list->second.first.front()) + othersText(proof.wrongDays - 1), reasonOf(kind), true, true};
    }
    return std::nullopt;
}

} // namespace lorvan

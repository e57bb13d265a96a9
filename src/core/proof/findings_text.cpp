#include "proof/findings_text.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <algorithm>
#include <cstdlib>

namespace lorvan {
namespace {

QString number(std::int64_t value)
{
    return QString::number(value);
}

QString insteadOf(const QString& what, Currency stored, Currency expected)
{
    return stored == expected
        ? QString()
        : QStringLiteral(", %1 %2 αντί για %3").arg(what, exactAmountText(stored), exactAmountText(expected));
}

QString noAmount(const Finding& finding)
{
    return finding.isNoAmount ? QStringLiteral(", γραμμένο σε μορφή που δεν είναι ποσό") : QString();
}

QString movementLine(const Finding& finding)
{
    return QStringLiteral("κίνηση %1, ημέρα %2, έσοδο %3, έξοδο %4")
        .arg(number(finding.key), storedDayText(finding.day), exactAmountText(finding.stored.income),
            exactAmountText(finding.stored.expense));
}

QString rowsText(std::int64_t rows)
{
    return rows == 1 ? QStringLiteral("1 γραμμή") : QStringLiteral("%1 γραμμές").arg(rows);
}

QString repeatedDayLine(const Finding& finding)
{
    return QStringLiteral("%1: %2").arg(storedDayText(finding.day), rowsText(finding.rows));
}

QString missingDayLine(const Finding& finding)
{
    const CashDayFigures& day = finding.expected;
    return QStringLiteral("%1: έσοδα %2, έξοδα %3, υπόλοιπο %4")
        .arg(storedDayText(finding.day), exactAmountText(day.income), exactAmountText(day.expense),
            exactAmountText(day.closingBalance));
}

QString daySumsLine(const Finding& finding)
{
    return storedDayText(finding.day)
        + insteadOf(QStringLiteral("έσοδα"), finding.stored.income, finding.expected.income)
        + insteadOf(QStringLiteral("έξοδα"), finding.stored.expense, finding.expected.expense) + noAmount(finding);
}

QString dayBalanceLine(const Finding& finding)
{
    return storedDayText(finding.day)
        + insteadOf(QStringLiteral("υπόλοιπο"), finding.stored.closingBalance, finding.expected.closingBalance)
        + noAmount(finding);
}

QString dayWithoutDateLine(const Finding& finding)
{
    return QStringLiteral("γραμμή %1: %2, υπόλοιπο %3")
        .arg(number(finding.key), number(finding.day), exactAmountText(finding.stored.closingBalance));
}

QString openingLine(const Finding& finding)
{
    const Currency amount = finding.expected.closingBalance;
    return QStringLiteral("από %1 τα υπόλοιπα έχουν %2 %3 από τις κινήσεις")
        .arg(storedDayText(finding.day), exactAmountText(amount).remove(u'-'),
            amount < Currency() ? QStringLiteral("λιγότερα") : QStringLiteral("παραπάνω"));
}

QString codeLine(const Finding& finding)
{
    return QStringLiteral("κωδικός %1: %2").arg(number(finding.key), rowsText(finding.rows));
}

QString codeMovementsLine(const Finding& finding)
{
    const QString movements = finding.rows == 1 ? QStringLiteral("κίνηση") : QStringLiteral("κινήσεις");
    return QStringLiteral("κωδικός %1: %2 %3").arg(number(finding.key), number(finding.rows), movements);
}

QString codeGroupLine(const Finding& finding)
{
    return QStringLiteral("κωδικός %1: ομάδα %2 «%3»")
        .arg(number(finding.key), number(finding.rows), finding.text.trimmed());
}

QString rowTextLine(const Finding& finding)
{
    return QStringLiteral("γραμμή %1 %2").arg(number(finding.key), finding.text).trimmed();
}

QString closedDayLine(const Finding& finding)
{
    const bool isDate = dateFromStored(finding.day).isValid();
    return QStringLiteral("«%1»: %2").arg(isDate ? storedDayText(finding.day) : finding.text, rowsText(finding.rows));
}

QString userLine(const Finding& finding)
{
    return QStringLiteral("%1: %2 φορές").arg(finding.text, number(finding.rows));
}

QString textLine(const Finding& finding)
{
    return finding.text;
}

/// Of a broken chain only the first link is named.
QString othersBehind(const Finding& finding, const QString& one, const QString& many)
{
    const std::int64_t others = finding.rows - 1;
    if (others < 1)
        return {};
    return others == 1 ? QStringLiteral(", και άλλη 1 ") + one : QStringLiteral(", και άλλες %1 ").arg(others) + many;
}

QString trailRowLine(const Finding& finding)
{
    return QStringLiteral("εγγραφή %1").arg(finding.key)
        + othersBehind(finding, QStringLiteral("εγγραφή"), QStringLiteral("εγγραφές"));
}

QString sealLine(const Finding& finding)
{
    return QStringLiteral("%1, σφραγίδα %2").arg(storedDayText(finding.day), number(finding.key))
        + othersBehind(finding, QStringLiteral("σφραγίδα"), QStringLiteral("σφραγίδες"));
}

QString missingSealLine(const Finding& finding)
{
    return QStringLiteral("%1, έκδοση %2").arg(storedDayText(finding.day), number(finding.key));
}

QString carryLine(const Finding& finding)
{
    const QString line = QStringLiteral("%1: διαφορά %2")
                             .arg(storedDayText(finding.day), exactAmountText(finding.stored.closingBalance));
    return finding.rows > 1 ? line + QStringLiteral(", και άλλες %1 ημέρες").arg(finding.rows - 1) : line;
}

QString dayLine(const Finding& finding)
{
    return storedDayText(finding.day);
}

QString alteredMovementLine(const Finding& finding)
{
    return finding.day == 0
        ? QStringLiteral("κίνηση %1: λείπει").arg(finding.key)
        : QStringLiteral("κίνηση %1, ημέρα %2").arg(number(finding.key), storedDayText(finding.day));
}

QString movedCarryLine(const Finding& finding)
{
    return storedDayText(finding.day)
        + insteadOf(QStringLiteral("μεταφορά"), finding.expected.closingBalance, finding.stored.closingBalance);
}

QString acceptedLine(const Finding& finding)
{
    return QString::number(finding.rows);
}

QString noLine(const Finding&)
{
    return {};
}

struct Wording {
    QString heading;
    QString (*line)(const Finding&);
};

const Wording& wordingOf(FindingKind kind)
{
    static const std::map<FindingKind, Wording> wordings{
        {FindingKind::FileDamaged, {QStringLiteral("Βλάβες στα αρχεία, με τα λόγια της μηχανής"), textLine}},
        {FindingKind::SchemaUnreadable, {QStringLiteral("Πίνακες του βιβλίου που δεν είναι όπως πρέπει"), textLine}},
        {FindingKind::ForeignObject, {QStringLiteral("Ξένα αντικείμενα στις βάσεις, που δρουν μόνα τους"), textLine}},
        {FindingKind::VersionRows, {QStringLiteral("Περισσότερες από μία εκδόσεις του βιβλίου"), textLine}},
        {FindingKind::SumTooLarge,
            {QStringLiteral("Τα ποσά ξεπερνούν όσα χωρά το ταμείο και οι ημέρες δεν ελέγχθηκαν"), noLine}},
        {FindingKind::MovementWithoutDate, {QStringLiteral("Κινήσεις χωρίς έγκυρη ημερομηνία"), movementLine}},
        {FindingKind::MovementAmount, {QStringLiteral("Κινήσεις με ποσό σε μορφή που δεν είναι ποσό"), movementLine}},
        {FindingKind::MovementBothSides, {QStringLiteral("Κινήσεις με έσοδο και έξοδο μαζί"), movementLine}},
        {FindingKind::DayWithoutDate, {QStringLiteral("Ημέρες ταμείου χωρίς έγκυρη ημερομηνία"), dayWithoutDateLine}},
        {FindingKind::RepeatedDay, {QStringLiteral("Ημέρες ταμείου γραμμένες περισσότερες φορές"), repeatedDayLine}},
        {FindingKind::MissingDay, {QStringLiteral("Ημέρες με κινήσεις που λείπουν από το ταμείο"), missingDayLine}},
        {FindingKind::DaySums, {QStringLiteral("Ημέρες με άλλα σύνολα από τις κινήσεις τους"), daySumsLine}},
        {FindingKind::DayBalance, {QStringLiteral("Ημέρες με λάθος υπόλοιπο"), dayBalanceLine}},
        {FindingKind::ClosedDayWithoutDate,
            {QStringLiteral("Κλεισίματα ταμείου χωρίς έγκυρη ημερομηνία"), closedDayLine}},
        {FindingKind::CodeWithoutNumber, {QStringLiteral("Κωδικοί χωρίς αριθμό"), rowTextLine}},
        {FindingKind::UserWithoutName, {QStringLiteral("Χρήστες χωρίς όνομα"), rowTextLine}},
        {FindingKind::JournalBroken,
            {QStringLiteral("Το ημερολόγιο άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση"), trailRowLine}},
        {FindingKind::SealBroken,
            {QStringLiteral("Σφραγίδες που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), sealLine}},
        {FindingKind::SealWithoutJournal,
            {QStringLiteral("Σφραγίδες που η εγγραφή τους λείπει από το ημερολόγιο"), sealLine}},
        {FindingKind::SealMissing,
            {QStringLiteral("Σφραγίδες που λείπουν: κάτι άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση"),
                missingSealLine}},
        {FindingKind::SealedDayAltered,
            {QStringLiteral("Σφραγισμένες ημέρες που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), sealLine}},
        {FindingKind::CarryAltered,
            {QStringLiteral("Σφραγισμένες ημέρες με άλλη μεταφορά, χωρίς αλλαγή που να την εξηγεί: κάτι άλλαξε από άλλο"
                            " πρόγραμμα ή παλαιότερη έκδοση"),
                carryLine}},
        {FindingKind::OpeningAltered,
            {QStringLiteral("Υπόλοιπα ανοίγματος που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), dayLine}},
        {FindingKind::CountAltered,
            {QStringLiteral("Καταμετρήσεις που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), dayLine}},
        {FindingKind::MovementAltered,
            {QStringLiteral("Κινήσεις που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), alteredMovementLine}},
        {FindingKind::CodeAltered,
            {QStringLiteral("Κωδικοί που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), trailRowLine}},
        {FindingKind::GroupAltered,
            {QStringLiteral("Ομάδες που άλλαξαν από άλλο πρόγραμμα ή παλαιότερη έκδοση"), trailRowLine}},
        {FindingKind::OpeningBalance, {QStringLiteral("Υπόλοιπο ανοίγματος"), openingLine}},
        {FindingKind::OpeningNotKept,
            {QStringLiteral("Υπόλοιπο ανοίγματος που φαίνεται μόνο στα υπόλοιπα"), openingLine}},
        {FindingKind::MovementNullAmount, {QStringLiteral("Κινήσεις με κενό ποσό, που διαβάζεται 0"), movementLine}},
        {FindingKind::MovementUnknownCode,
            {QStringLiteral("Κωδικοί κινήσεων που δεν υπάρχουν πια"), codeMovementsLine}},
        {FindingKind::MovementGroup, {QStringLiteral("Κωδικοί με κινήσεις σε άλλη ομάδα"), codeMovementsLine}},
        {FindingKind::RepeatedCode, {QStringLiteral("Κωδικοί γραμμένοι περισσότερες φορές"), codeLine}},
        {FindingKind::CodeUnknownGroup, {QStringLiteral("Κωδικοί σε ομάδα που δεν υπάρχει πια"), codeGroupLine}},
        {FindingKind::CodeGroupName, {QStringLiteral("Κωδικοί με άλλο όνομα για την ομάδα τους"), codeGroupLine}},
        {FindingKind::RepeatedClosedDay, {QStringLiteral("Ημέρες κλεισμένες περισσότερες φορές"), closedDayLine}},
        {FindingKind::RepeatedUser, {QStringLiteral("Χρήστες με το ίδιο όνομα"), userLine}},
        {FindingKind::OtherObject, {QStringLiteral("Αντικείμενα άλλου προγράμματος στις βάσεις"), textLine}},
        {FindingKind::CarryMoved, {QStringLiteral("Σφραγισμένες ημέρες όπου μεταβλήθηκε η μεταφορά"), movedCarryLine}},
        {FindingKind::AcceptedFaults, {QStringLiteral("Ευρήματα που έγιναν αποδεκτά"), acceptedLine}},
        {FindingKind::ReadableByOthers,
            {QStringLiteral("Βάσεις που μπορεί να διαβάσει κάθε χρήστης του υπολογιστή"), textLine}},
    };
    return wordings.at(kind);
}

QString headingOf(FindingKind kind, std::int64_t count, const QString& repair)
{
    const bool isKeptByRepair = kind == FindingKind::OpeningNotKept;
    return wordingOf(kind).heading + (isKeptByRepair ? QStringLiteral(" (%1 το καταχωρίζει)").arg(repair) : QString())
        + QStringLiteral(": ") + number(count);
}

void addList(std::vector<CheckLine>& lines, FindingKind kind, const BookFindings::List& list, const FindingsForm& form)
{
    lines.push_back({headingOf(kind, list.count, form.repair)});
    const std::size_t shown = std::min(list.first.size(), form.longest);
    for (std::size_t i = 0; i < shown; ++i) {
        if (const QString line = wordingOf(kind).line(list.first[i]); !line.isEmpty())
            lines.push_back({QStringLiteral("  ") + line, dateFromStored(list.first[i].day)});
    }
    if (const auto rest = list.count - static_cast<std::int64_t>(shown); rest > 0)
        lines.push_back({QStringLiteral("  και άλλα ") + number(rest)});
}

void addKinds(std::vector<CheckLine>& lines, const BookFindings& findings, bool notices, const FindingsForm& form)
{
    for (const auto& [kind, list] : findings.byKind()) {
        if (isNotice(kind) == notices)
            addList(lines, kind, list, form);
    }
}

bool hasNotices(const BookFindings& findings)
{
    return std::any_of(
        findings.byKind().begin(), findings.byKind().end(), [](const auto& each) { return isNotice(each.first); });
}

} // namespace

std::vector<CheckLine> findingLines(const BookFindings& findings, const FindingsForm& form)
{
    std::vector<CheckLine> lines;
    if (findings.isInOrder()) {
        lines.push_back({QStringLiteral("Δεν βρέθηκαν λάθη.")});
    } else {
        lines.push_back({QStringLiteral("Λάθη")});
        lines.push_back({});
        addKinds(lines, findings, false, form);
    }
    if (hasNotices(findings)) {
        lines.push_back({});
        lines.push_back({QStringLiteral("Επισημάνσεις (δεν είναι λάθη)")});
        lines.push_back({});
        addKinds(lines, findings, true, form);
    }
    return lines;
}

std::vector<CheckLine> totalLines(const BookCheck& check)
{
    const BookTotals& totals = check.totals;
    const bool areSums = check.findings.count(FindingKind::SumTooLarge) == 0;
    const auto sum = [&](Currency amount) {
        return areSums ? exactAmountText(amount) : QStringLiteral("έξω από τα όρια");
    };
    const std::pair<const char*, QString> figures[] = {
        {"Κινήσεις", number(totals.movements.rows)},
        {"  από αυτές επιταγές", number(totals.movements.cheques)},
        {"Ημέρες ταμείου", number(totals.cashDays)},
        {"Κωδικοί", number(totals.codes)},
        {"Ομάδες", number(totals.groups)},
        {"Κλεισμένες ημέρες", number(totals.closedDays)},
        {"Χρήστες", number(totals.users)},
        {"Σύνολο εσόδων", sum(totals.movements.income)},
        {"Σύνολο εξόδων", sum(totals.movements.expense)},
        {"Σύνολο λογαριασμών τάξεως", sum(totals.movements.memorandum)},
        {"Πρώτη ημέρα", totals.cashDays > 0 ? storedDayText(totals.firstDay) : QStringLiteral("-")},
        {"Τελευταία ημέρα", totals.cashDays > 0 ? storedDayText(totals.lastDay) : QStringLiteral("-")},
        {"Τελευταίο υπόλοιπο", exactAmountText(totals.lastBalance)},
    };
    std::vector<CheckLine> lines{{QStringLiteral("Σύνολα")}, CheckLine{}};
    for (const auto& [what, value] : figures)
        lines.push_back({QString::fromUtf8(what) + QStringLiteral(": ") + value});
    return lines;
}

QString storedDayText(std::int64_t day)
{
    const QDate date = dateFromStored(day);
    return date.isValid() ? dateText(date) : QString::number(day);
}

QString exactAmountText(Currency amount)
{
    const std::int64_t units = amount.tenThousandths();
    const std::int64_t rest = units % Currency::unitsPerCent;
    const Currency wholeCents = Currency::fromTenThousandths(units - rest);
    if (rest == 0)
        return amountText(wholeCents);
    const QString sign = units < 0 && wholeCents.isZero() ? QStringLiteral("-") : QString();
    return sign + amountText(wholeCents) + QStringLiteral("%1").arg(std::abs(rest), 2, 10, QLatin1Char('0'));
}

} // namespace lorvan

#include "proof/code_answer.h"

#include "cashbook/cash_closing.h"
#include "journal/check_code.h"
#include "journal/journal.h"
#include "journal/journal_audit.h"
#include "movements/cash_day.h"
#include "movements/movement_store.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "proof/findings_text.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace lorvan {
namespace {

using Verdict = CodeAnswer::Verdict;

bool wasLostInARestore(Connection& book, const QString& code)
{
    if (!keepsJournal(book))
        return false;
    auto rows = book.prepare("SELECT after FROM main.journal WHERE subject='book' AND action='restore'");
    while (rows.step()) {
        if (QJsonDocument::fromJson(rows.text(0).toUtf8())[QStringLiteral("codes")].toArray().contains(code))
            return true;
    }
    return false;
}

/// Whether the journal is as it was written, up to the row that the seal names.
bool vouchesForJournal(Connection& book, const DaySeal& seal)
{
    const JournalAudit audit = auditJournal(book, {seal.journal});
    if (!audit.missing.empty())
        return false;
    auto row = book.prepare("SELECT id FROM main.journal WHERE hash=? ORDER BY id LIMIT 1");
    row.bind(seal.journal);
    const std::int64_t id = row.step() ? row.integer(0) : 0;
    const bool isAccepted = !audit.acceptedRows.empty() && *audit.acceptedRows.begin() <= id;
    return !isAccepted && std::none_of(audit.broken.begin(), audit.broken.end(), [id](const BrokenRows& broken) {
        return broken.id <= id;
    });
}

bool wasAcceptedAfter(Connection& book, const DaySeal& seal)
{
    return keepsJournal(book)
        && book.prepare("SELECT 1 FROM seals WHERE day=? AND version>? AND journal IN"
                        " (SELECT hash FROM main.journal WHERE action='accept')")
               .bind(seal.day, seal.version)
               .step();
}

std::optional<Currency> movedBalance(Connection& book, const DaySeal& last)
{
    const auto now = storedCashDay(book, dateFromStored(last.day));
    const Currency balance = now ? now->closingBalance : carriedBalance(book, dateFromStored(last.day)).balance;
    return balance == last.balance ? std::nullopt : std::optional(balance);
}

Verdict verdictOf(Connection& book, const DaySeal& seal, const DaySeal& last)
{
    if (!isWhole(seal) || !holdsSeal(book, last))
        return Verdict::Altered;
    if (!vouchesForJournal(book, seal))
        return Verdict::JournalAltered;
    if (wasAcceptedAfter(book, seal))
        return Verdict::Accepted;
    return seal.version == last.version ? Verdict::Holds : Verdict::Resealed;
}

QString balanceText(const CodeAnswer& answer)
{
    if (!answer.balanceNow)
        return {};
    return QStringLiteral(" Μεταβλήθηκε η μεταφορά: το υπόλοιπό της τυπώθηκε %1 και είναι τώρα %2.")
        .arg(exactAmountText(answer.seal.balance), exactAmountText(*answer.balanceNow));
}

} // namespace

CodeAnswer answerForCode(Connection& book, const QString& typed)
{
    CodeAnswer answer;
    answer.code = readCheckCode(typed);
    if (answer.code.isEmpty()) {
        answer.verdict = Verdict::NoCode;
        return answer;
    }
    const auto seal = sealWithCode(book, answer.code);
    if (!seal) {
        answer.verdict = wasLostInARestore(book, answer.code) ? Verdict::NewerThanCopy : Verdict::Unknown;
        return answer;
    }
    answer.seal = *seal;
    const auto last = lastSealOf(book, dateFromStored(seal->day));
    answer.lastVersion = last ? last->version : seal->version;
    answer.verdict = verdictOf(book, *seal, last.value_or(*seal));
    if (answer.verdict == Verdict::Holds)
        answer.balanceNow = movedBalance(book, *seal);
    return answer;
}

QString answerText(const CodeAnswer& answer)
{
    const QString whose = QStringLiteral("Ο κωδικός %1 είναι της ημέρας %2, έκδοση %3. ")
                              .arg(answer.code, dateText(dateFromStored(answer.seal.day)))
                              .arg(answer.seal.version);
    switch (answer.verdict) {
    case Verdict::NoCode:
        return QStringLiteral("Δεν είναι κωδικός ελέγχου. Γράφεται όπως K7QF-2M9T-XD.");
    case Verdict::Holds:
        return whose + QStringLiteral("Η ημέρα είναι όπως τυπώθηκε.") + balanceText(answer);
    case Verdict::Resealed:
        return whose
            + QStringLiteral("Η ημέρα άλλαξε μετά από χρήστη με το δικαίωμα και σφραγίστηκε ξανά, ως έκδοση %1.")
                  .arg(answer.lastVersion);
    case Verdict::Accepted:
        return whose
            + QStringLiteral(
                "Η ημέρα άλλαξε μετά από άλλο πρόγραμμα ή παλαιότερη έκδοση, και ο διαχειριστής το δέχτηκε:"
                " ισχύει η έκδοση %1.")
                  .arg(answer.lastVersion);
    case Verdict::Altered:
        return whose + QStringLiteral("Η ημέρα άλλαξε από άλλο πρόγραμμα ή παλαιότερη έκδοση.");
    case Verdict::JournalAltered:
        return whose
            + QStringLiteral("Οι κινήσεις είναι όπως σφραγίστηκαν, αλλά το ιστορικό ως εκεί άλλαξε από άλλο πρόγραμμα ή"
                             " παλαιότερη έκδοση.");
    case Verdict::NewerThanCopy:
        return QStringLiteral("Ο κωδικός %1 είναι νεότερος από το αντίγραφο από το οποίο επανήλθε το βιβλίο.")
            .arg(answer.code);
    case Verdict::Unknown:
        break;
    }
    return QStringLiteral("Ο κωδικός %1 δεν υπάρχει σε αυτό το βιβλίο.").arg(answer.code);
}

} // namespace lorvan

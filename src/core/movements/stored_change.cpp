#include "movements/stored_change.h"

#include "platform/amount_text.h"

#include <utility>

namespace lorvan {
namespace {

QString textOf(const MovementChange& change)
{
    const Movement& movement = change.movement();
    const QString verb = !change.before ? QStringLiteral("εισαγωγή ")
        : !change.after                 ? QStringLiteral("διαγραφή ")
                                        : QStringLiteral("μεταβολή ");
    return verb + movement.description.simplified() + u' '
        + amountText(movement.income.isZero() ? movement.expense : movement.income);
}

QString textOf(const GroupChange& change)
{
    return QStringLiteral("μετονομασία ομάδας %1 σε %2")
        .arg(change.before.name.simplified(), change.after.name.simplified());
}

QString textOf(const CodeChange& change)
{
    const MovementCode& code = change.after.code;
    return QStringLiteral("μεταβολή κωδικού %1 %2").arg(code.code).arg(code.description.simplified()).trimmed();
}

QString reasonOf(MovementRefusal refusal)
{
    switch (refusal) {
    case MovementRefusal::DayIsClosed:
        return QStringLiteral("Το ταμείο της ημέρας έχει κλείσει και δεν έχετε δικαίωμα να το μεταβάλετε.");
    case MovementRefusal::MovementIsGone:
        return QStringLiteral("Η κίνηση έχει διαγραφεί στο μεταξύ.");
    case MovementRefusal::CodeHasChanged:
        return QStringLiteral("Ο κωδικός της κίνησης έχει διαγραφεί στο μεταξύ.");
    case MovementRefusal::MovementIsAnother:
    case MovementRefusal::DateIsInvalid:
    case MovementRefusal::NoCode:
    case MovementRefusal::NoDescription:
        break;
    }
    return QStringLiteral("Η κίνηση έχει αλλάξει στο μεταξύ.");
}

QString reasonOf(GroupRefusal refusal)
{
    return refusal == GroupRefusal::IsGone ? QStringLiteral("Η ομάδα έχει διαγραφεί στο μεταξύ.")
                                           : QStringLiteral("Η ομάδα έχει αλλάξει στο μεταξύ.");
}

QString reasonOf(CodeRefusal refusal)
{
    switch (refusal) {
    case CodeRefusal::IsGone:
        return QStringLiteral("Ο κωδικός έχει διαγραφεί στο μεταξύ.");
    case CodeRefusal::CodeExists:
        return QStringLiteral("Τον αριθμό του έχει πάρει στο μεταξύ άλλος κωδικός.");
    case CodeRefusal::UnknownGroup:
        return QStringLiteral("Η ομάδα όπου θα πήγαινε ο κωδικός έχει αλλάξει στο μεταξύ.");
    case CodeRefusal::MovementsDiffer:
        return QStringLiteral("Οι κινήσεις του κωδικού έχουν αλλάξει στο μεταξύ.");
    case CodeRefusal::IsAnother:
    case CodeRefusal::Incomplete:
    case CodeRefusal::NoWholeNumber:
    case CodeRefusal::DescriptionExists:
    case CodeRefusal::IsUsed:
        break;
    }
    return QStringLiteral("Ο κωδικός έχει αλλάξει στο μεταξύ.");
}

bool isLastingChange(const MovementChange& change)
{
    return change.before == change.after;
}

bool isLastingChange(const GroupChange& change)
{
    return change.before.name == change.after.name;
}

bool isLastingChange(const CodeChange& change)
{
    return !change.isReversible;
}

} // namespace

StoredChange reversed(StoredChange change)
{
    std::visit([](auto& each) { std::swap(each.before, each.after); }, change);
    return change;
}

bool isLasting(const StoredChange& change)
{
    return std::visit([](const auto& each) { return isLastingChange(each); }, change);
}

QString changeText(const StoredChange& change)
{
    return std::visit([](const auto& each) { return textOf(each); }, change);
}

QString repeatRefusalText(const RepeatRefusal& refusal)
{
    return std::visit([](auto each) { return reasonOf(each); }, refusal);
}

} // namespace lorvan

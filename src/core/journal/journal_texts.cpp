#include "journal/journal_texts.h"

#include "journal/journal_filter.h"
#include "journal/journal_lines.h"
#include "platform/date_text.h"

#include <QJsonDocument>

#include <algorithm>

namespace lorvan {
namespace {

/// What was changed, in the genitive: the end of "Διαγραφή …".
QString genitive(JournalKind kind)
{
    switch (kind) {
    case JournalKind::Movement:
        return QStringLiteral("κίνησης");
    case JournalKind::CashDay:
        return QStringLiteral("ημέρας ταμείου");
    case JournalKind::Code:
        return QStringLiteral("κωδικού");
    case JournalKind::Group:
        return QStringLiteral("ομάδας");
    case JournalKind::User:
        return QStringLiteral("χρήστη");
    case JournalKind::Book:
        break;
    }
    return QStringLiteral("βιβλίου");
}

/// Followed by the genitive of what was changed; empty if the action's text stands alone.
QString transitive(JournalAction action)
{
    switch (action) {
    case JournalAction::Insert:
        return QStringLiteral("Εισαγωγή ");
    case JournalAction::Modify:
        return QStringLiteral("Μεταβολή ");
    case JournalAction::Remove:
        return QStringLiteral("Διαγραφή ");
    case JournalAction::Undo:
        return QStringLiteral("Αναίρεση αλλαγής ");
    case JournalAction::Redo:
        return QStringLiteral("Επανάληψη αλλαγής ");
    case JournalAction::Correct:
        return QStringLiteral("Διόρθωση ");
    case JournalAction::Found:
        return QStringLiteral("Βρέθηκε αλλαγή ");
    case JournalAction::Accept:
        return QStringLiteral("Αποδοχή αλλαγής ");
    default:
        return {};
    }
}

QString alone(JournalAction action)
{
    switch (action) {
    case JournalAction::Begin:
        return QStringLiteral("Αρχή του ιστορικού");
    case JournalAction::Repair:
        return QStringLiteral("Διόρθωση των ημερών ταμείου");
    case JournalAction::Opening:
        return QStringLiteral("Υπόλοιπο ανοίγματος");
    case JournalAction::Import:
        return QStringLiteral("Εισαγωγή από αρχείο");
    case JournalAction::Restore:
        return QStringLiteral("Επαναφορά αντιγράφου");
    case JournalAction::Count:
        return QStringLiteral("Καταμέτρηση ταμείου");
    case JournalAction::Clear:
        return QStringLiteral("Διαγραφή όλων των στοιχείων");
    default:
        return {};
    }
}

/// Of one day, or of many together.
QString textForDays(JournalAction action, JournalKind kind)
{
    const bool isOne = kind == JournalKind::CashDay;
    if (action == JournalAction::Close)
        return isOne ? QStringLiteral("Κλείσιμο ημέρας") : QStringLiteral("Κλείσιμο ανοικτών ημερών");
    return isOne ? QStringLiteral("Σφράγιση ημέρας") : QStringLiteral("Σφράγιση κλεισμένων ημερών");
}

/// As it stands in front of its number or name.
QString nominative(JournalKind kind)
{
    switch (kind) {
    case JournalKind::Movement:
        return QStringLiteral("Κίνηση ");
    case JournalKind::CashDay:
        return QStringLiteral("Ημέρα ");
    case JournalKind::Code:
        return QStringLiteral("Εγγραφή κωδικού ");
    case JournalKind::Group:
        return QStringLiteral("Ομάδα ");
    case JournalKind::User:
        return QStringLiteral("Χρήστης ");
    case JournalKind::Book:
        break;
    }
    return QStringLiteral("Βιβλίο");
}

QString differenceText(const JournalLine& line)
{
    const auto shown = [](const QString& value) { return value.isEmpty() ? QStringLiteral("–") : value; };
    return line.name + u' ' + shown(line.before) + QStringLiteral(" → ") + shown(line.after);
}

QString valueText(const JournalLine& line)
{
    const QString& value = line.after.isEmpty() ? line.before : line.after;
    return line.weight == JournalLine::Weight::Clear ? value : line.name + u' ' + value;
}

/// A code is known by its number, not by that of its row.
QString titleOf(const JournalRow& row)
{
    if (journalKind(row.subject) == JournalKind::Code && row.code)
        return QStringLiteral("Κωδικός %1").arg(*row.code);
    return journalSubjectText(row.subject);
}

/// By which a user recognises a movement or code of which something else was changed.
QString keptDescription(const std::vector<JournalLine>& lines)
{
    const auto found = std::find_if(lines.begin(), lines.end(), [](const JournalLine& line) {
        return line.name == QStringLiteral("Περιγραφή") && !line.differs && !line.after.isEmpty();
    });
    return found == lines.end() ? QString() : QStringLiteral(" (%1)").arg(found->after);
}

} // namespace

QString journalActionText(const JournalRow& row)
{
    const auto action = journalAction(row.action);
    const auto kind = journalKind(row.subject);
    if (!action)
        return row.action;
    if (kind && (*action == JournalAction::Close || *action == JournalAction::Seal))
        return textForDays(*action, *kind);
    const QString text = alone(*action);
    if (!text.isEmpty())
        return text;
    return transitive(*action) + (kind ? genitive(*kind) : row.subject);
}

QString journalSubjectText(const QString& subject)
{
    const auto kind = journalKind(subject);
    if (!kind)
        return subject;
    const QString which = subject.section(u'/', 1);
    if (*kind != JournalKind::CashDay)
        return nominative(*kind) + which;
    const QDate day = dateFromStored(which.toLongLong());
    return nominative(*kind) + (day.isValid() ? dateText(day) : which);
}

QString journalSummary(const JournalRow& row)
{
    const std::vector<JournalLine> lines = journalLines(row);
    const bool isDifference =
        std::any_of(lines.begin(), lines.end(), [](const JournalLine& line) { return line.differs; });
    QStringList parts;
    for (const JournalLine& line : lines) {
        if (line.weight != JournalLine::Weight::Slight && (line.differs == isDifference || line.isOfChange))
            parts += line.differs ? differenceText(line) : valueText(line);
    }
    const QString title = titleOf(row) + (isDifference ? keptDescription(lines) : QString());
    return parts.isEmpty() ? title : title + QStringLiteral(": ") + parts.join(QStringLiteral(", "));
}

QString journalTimeText(const JournalRow& row)
{
    return QDateTime::fromMSecsSinceEpoch(row.at).toString(QStringLiteral("dd-MM-yyyy HH:mm:ss"));
}

} // namespace lorvan

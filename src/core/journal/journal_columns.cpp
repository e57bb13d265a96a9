#include "journal/journal_columns.h"

#include "journal/journal_filter.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstdlib>

namespace lorvan {
namespace {

using Form = JournalForm;
using Columns = std::vector<JournalColumn>;

constexpr auto withName = JournalColumn::Told::WithName;
constexpr auto alone = JournalColumn::Told::Alone;
constexpr auto never = JournalColumn::Told::Never;
constexpr bool ofChange = true;

/// The amount stands before what may be long, so that a summary that is cut still shows it.
const Columns& movementColumns()
{
    static const Columns columns{{"kvdikos", "Κωδικός", Form::Number}, {"esoda", "Έσοδα", Form::Amount},
        {"ejoda", "Έξοδα", Form::Amount}, {"perigrafh", "Περιγραφή", Form::Text, alone},
        {"hmeromhnia", "Ημερομηνία", Form::Day, alone}, {"epitagh", "Επιταγή", Form::YesNo},
        {"L_tajeos", "Λογαριασμός τάξεως", Form::Amount}, {"aa", "Αριθμός κίνησης", Form::Number, never}};
    return columns;
}

const Columns& dayColumns()
{
    static const Columns columns{{"hmeraklhsimatos", "Ημέρα που έκλεισε", Form::Day, never},
        {"esoda", "Έσοδα", Form::Amount}, {"ejoda", "Έξοδα", Form::Amount}, {"ypoloipo", "Υπόλοιπο", Form::Amount},
        {"aa", "Αριθμός κλεισίματος", Form::Number, never}, {"seal", "Σφραγίδα που δεν συμφωνεί", Form::Number},
        {"counted", "Καταμέτρηση"}, {"carried", "Διαφορά μεταφοράς", Form::Amount}};
    return columns;
}

const Columns& codeColumns()
{
    static const Columns columns{{"kvdikos", "Κωδικός", Form::Number}, {"perigrafh", "Περιγραφή", Form::Text, alone},
        {"omada", "Ομάδα"}, {"esodo", "Είναι έσοδο", Form::YesNo}, {"energos", "Ενεργός", Form::YesNo},
        {"moved", "Κινήσεις που άλλαξαν ομάδα", Form::Number, withName, ofChange},
        {"aa_omada", "Αριθμός ομάδας που είχαν", Form::Number, never, ofChange},
        {"aa_omadas", "Αριθμός ομάδας", Form::Number, never}, {"aa", "Αριθμός εγγραφής", Form::Number, never},
        {"digest", "Αποτύπωμα", Form::Text, never, ofChange}};
    return columns;
}

const Columns& groupColumns()
{
    static const Columns columns{
        {"perigrafh", "Ονομασία ομάδας", Form::Text, alone}, {"aa", "Αριθμός ομάδας", Form::Number, never}};
    return columns;
}

const Columns& userColumns()
{
    static const Columns columns{{"uname", "Όνομα χρήστη", Form::Text, alone},
        {"r_eggrafes", "Αλλάζει κλεισμένες ημέρες", Form::YesNo}, {"r_klhsimo", "Κλείνει το ταμείο", Form::YesNo},
        {"r_kvdikoi", "Αλλάζει ομάδες και κωδικούς", Form::YesNo},
        {"newPassword", "Νέος κωδικός πρόσβασης", Form::YesNo}};
    return columns;
}

const Columns& bookColumns()
{
    static const Columns columns{{"file", "Αρχείο", Form::Text, alone},
        {"added", "Γραμμές που προστέθηκαν", Form::Number}, {"from", "Από", Form::Day}, {"to", "Έως", Form::Day},
        {"days", "Ημέρες", Form::Number}, {"sealed", "Όλες οι ημέρες", Form::Day, never},
        {"kinhseis", "Κινήσεις", Form::Number}, {"tameio", "Ημέρες ταμείου", Form::Number},
        {"kvdikoi", "Κωδικοί", Form::Number}, {"omades", "Ομάδες", Form::Number},
        {"klhsimotameioy", "Κλεισμένες ημέρες", Form::Number}, {"codes", "Χρήστες", Form::Number},
        {"mergedDays", "Ημέρες που έμειναν με μία γραμμή", Form::Number},
        {"removedRows", "Γραμμές που αφαιρέθηκαν", Form::Number}, {"addedDays", "Ημέρες που προστέθηκαν", Form::Number},
        {"correctedDays", "Ημέρες με σύνολα ή υπόλοιπο που διορθώθηκαν", Form::Number},
        {"keptDifferences", "Υπόλοιπα ανοίγματος που καταχωρίστηκαν", Form::Number},
        {"opening_difference", "Υπόλοιπα ανοίγματος", Form::Number}, {"taytothta", "Εκδόσεις", Form::Number, never},
        {"aa", "Αριθμός τελευταίου κλεισίματος", Form::Number, never},
        {"seal", "Τελευταία σφραγίδα", Form::Text, never, ofChange}, {"digest", "Αποτύπωμα", Form::Text, never}};
    return columns;
}

/// What the restored copy was, and the ends of both chains in the book that it replaced.
const Columns& restoreColumns()
{
    static const Columns columns{{"copy", "Αντίγραφο", Form::Text, alone},
        {"codes", "Κωδικοί ελέγχου νεότεροι από το αντίγραφο"},
        {"journal", "Τέλος του ιστορικού πριν", Form::Text, never},
        {"seal", "Τελευταία σφραγίδα πριν", Form::Text, never}};
    return columns;
}

const Columns& columnsOf(JournalKind kind)
{
    switch (kind) {
    case JournalKind::Movement:
        return movementColumns();
    case JournalKind::CashDay:
        return dayColumns();
    case JournalKind::Code:
        return codeColumns();
    case JournalKind::Group:
        return groupColumns();
    case JournalKind::User:
        return userColumns();
    case JournalKind::Book:
        break;
    }
    return bookColumns();
}

std::optional<std::int64_t> wholeNumber(const QJsonValue& value)
{
    constexpr qint64 none = -1;
    const qint64 number = value.toInteger(none);
    const bool isWhole = value.isDouble() && (number != none || value.toInteger(0) == none);
    return isWhole ? std::optional<std::int64_t>(number) : std::nullopt;
}

QString yesOrNo(bool yes)
{
    return yes ? QStringLiteral("ναι") : QStringLiteral("όχι");
}

/// With all of its decimals: two amounts that differ are never the same text.
QString exactAmount(std::int64_t units)
{
    const std::int64_t belowCents = units % Currency::unitsPerCent;
    const QString cents = amountText(Currency::fromTenThousandths(units - belowCents));
    if (belowCents == 0)
        return cents;
    const QString sign = units < 0 && !cents.startsWith(u'-') ? QStringLiteral("-") : QString();
    return sign + cents + QString::number(std::abs(belowCents)).rightJustified(2, u'0');
}

bool isListOfTexts(const QJsonArray& list)
{
    return std::all_of(list.begin(), list.end(), [](const QJsonValue& each) { return each.isString(); });
}

QString daysText(const QJsonArray& days)
{
    QStringList texts;
    for (const auto& day : days)
        texts += journalValueText(day, Form::Day);
    return texts.join(QStringLiteral(", "));
}

QString asStored(const QJsonValue& value)
{
    if (value.isString())
        return value.toString();
    if (value.isArray() && isListOfTexts(value.toArray()))
        return value.toVariant().toStringList().join(QStringLiteral(", "));
    const QByteArray json = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json.sliced(1, json.size() - 2)); // without the brackets
}

} // namespace

const std::vector<JournalColumn>& journalColumnsOf(const JournalRow& row)
{
    static const Columns none;
    if (row.action == journalWord(JournalAction::Restore))
        return restoreColumns();
    const auto kind = journalKind(row.subject);
    return kind ? columnsOf(*kind) : none;
}

JournalColumn otherJournalColumn(const JournalRow& row, const QString& name)
{
    const QDate day = row.subject == QLatin1String("book") ? dateFromStored(name.toLongLong()) : QDate();
    if (day.isValid())
        return {name, QStringLiteral("Διαφορά ανοίγματος της ") + dateText(day), Form::Amount};
    constexpr qint64 unitsPerCent = Currency::unitsPerCent;
    if (const qint64 worth = name.toLongLong(); worth > 0 && row.action == journalWord(JournalAction::Count))
        return {name, QStringLiteral("Τεμάχια των ") + exactAmount(worth * unitsPerCent), Form::Number};
    return {name, name};
}

QString journalValueText(const QJsonValue& value, JournalForm form)
{
    if (value.isUndefined() || value.isNull())
        return {};
    if (form == Form::YesNo && value.isBool())
        return yesOrNo(value.toBool());
    if (value.isArray() && form == Form::Day)
        return daysText(value.toArray());
    const auto number = wholeNumber(value);
    if (number && form == Form::YesNo)
        return yesOrNo(*number != 0);
    if (number && form == Form::Amount)
        return exactAmount(*number);
    if (number && form == Form::Day && dateFromStored(*number).isValid())
        return dateText(dateFromStored(*number));
    return asStored(value);
}

bool saysNothing(const QJsonValue& value, JournalForm form)
{
    const bool isZero = form != Form::Day && (wholeNumber(value) == 0 || (value.isBool() && !value.toBool()));
    return isZero || journalValueText(value, form).trimmed().isEmpty();
}

} // namespace lorvan

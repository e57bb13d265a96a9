#include "search/search_texts.h"

#include "platform/amount_text.h"

#include <QStringList>

namespace lorvan {
namespace {

constexpr qsizetype longestShown = 24;
constexpr qsizetype mostShown = 4;

QString readingText(const SearchTerm& term)
{
    static const QString inDescription = QStringLiteral("στην περιγραφή");
    if (!term.hasMeaning() || (term.isAmbiguous() && term.reading == SearchReading::Words))
        return inDescription;
    const bool isEither = term.isAmbiguous() && term.reading == SearchReading::Either;
    return isEither ? term.meaningText + QStringLiteral(" ή ") + inDescription : term.meaningText;
}

} // namespace

QString searchCountText(std::int64_t count)
{
    QString text = QString::number(count);
    for (qsizetype place = text.size() - 3; place > 0; place -= 3)
        text.insert(place, u'.');
    return text;
}

QString movementCountText(std::int64_t count)
{
    return searchCountText(count) + (count == 1 ? QStringLiteral(" κίνηση") : QStringLiteral(" κινήσεις"));
}

QString searchTotalsText(const SearchTotals& totals)
{
    if (totals.count == 0)
        return QStringLiteral("Δεν βρέθηκε καμία κίνηση");
    const QString found = (totals.count == 1 ? QStringLiteral("Βρέθηκε ") : QStringLiteral("Βρέθηκαν "))
        + movementCountText(totals.count);
    if (totals.isOutOfRange)
        return found + QStringLiteral("   Τα σύνολα είναι εκτός ορίων");
    return found + QStringLiteral("   Έσοδα ") + amountOrZeroText(totals.income) + QStringLiteral("   Έξοδα ")
        + amountOrZeroText(totals.expense);
}

QString searchedText(const QString& text)
{
    const bool isLong = text.size() > longestShown;
    return u'«' + (isLong ? text.first(longestShown) + u'…' : text) + u'»';
}

QString notUnderstoodText(const SearchQuery& query)
{
    if (query.isTooLong)
        return QStringLiteral("Το κείμενο είναι μεγαλύτερο από %1 χαρακτήρες και δεν αναζητήθηκε")
            .arg(searchCountText(SearchQuery::mostCharacters));
    QStringList texts;
    for (const QString& text : query.notUnderstood.first(std::min(mostShown, query.notUnderstood.size())))
        texts += searchedText(text);
    if (texts.isEmpty())
        return {};
    const qsizetype more = query.notUnderstood.size() - texts.size();
    return QStringLiteral("Δεν κατάλαβα: ") + texts.join(u' ')
        + (more > 0 ? QStringLiteral(" και άλλα %1").arg(more) : QString());
}

QString searchQueryText(const SearchQuery& query)
{
    QStringList texts;
    for (const SearchTerm& term : query.terms)
        texts += searchedText(term.text) + QStringLiteral(" (") + readingText(term) + u')';
    QString text = QStringLiteral("Αναζήτηση: ") + texts.join(u' ');
    if (const QString left = notUnderstoodText(query); !left.isEmpty())
        text += QStringLiteral(" – ") + left;
    return text;
}

} // namespace lorvan

#include "movements/description_offers.h"

#include "platform/engine/connection.h"
#include "platform/entry_rules.h"
#include "platform/folded_text.h"

#include <QHash>

#include <algorithm>

namespace lorvan {
namespace {

/// Letter by letter, so that positions stay.
QString folded(QString text)
{
    for (QChar& letter : text)
        letter = foldedLetter(letter.unicode());
    return text;
}

} // namespace

DescriptionOffers::DescriptionOffers(const std::vector<QString>& latestFirst)
{
    QHash<QString, std::size_t> places;
    for (const QString& description : latestFirst) {
        const QString text = typedText(TypingRule::Capitals, description.trimmed());
        const QString key = folded(text);
        if (const auto known = places.constFind(key); known != places.constEnd()) {
            ++m_offers[*known].count;
        } else {
            places.insert(key, m_offers.size());
            m_offers.push_back({text, key, 1});
        }
    }
    std::stable_sort(
        m_offers.begin(), m_offers.end(), [](const Offer& a, const Offer& b) { return a.count > b.count; });
}

QString DescriptionOffers::rest(const QString& typed) const
{
    const QString begun = folded(typed);
    for (const Offer& offer : m_offers) {
        if (!begun.isEmpty() && offer.folded.size() > begun.size() && offer.folded.startsWith(begun))
            return offer.text.mid(begun.size());
    }
    return {};
}

DescriptionOffers readDescriptionOffers(Connection& main, qint32 code)
{
    auto rows =
        main.prepare("SELECT perigrafh FROM kinhseis WHERE kvdikos=? ORDER BY hmeromhnia DESC, aa DESC LIMIT 500");
    rows.bind(code);
    std::vector<QString> latestFirst;
    while (rows.step())
        latestFirst.push_back(rows.text(0));
    return DescriptionOffers(latestFirst);
}

} // namespace lorvan

#include "search/recent_searches.h"

#include <utility>

namespace lorvan {
namespace {

constexpr qsizetype longest = 200;
const QString section = QStringLiteral("Search");

QString keyOf(qsizetype place)
{
    return QStringLiteral("recent%1").arg(place + 1);
}

} // namespace

RecentSearches::RecentSearches(SettingsStore store)
    : m_store(std::move(store))
{
}

QStringList RecentSearches::list() const
{
    QStringList texts;
    for (qsizetype place = 0; place < most; ++place)
        texts += m_store.value(section, keyOf(place), {});
    texts.removeAll(QString());
    return texts;
}

void RecentSearches::remember(const QString& typed) const
{
    const QString text = typed.simplified();
    QStringList texts = list();
    if (text.isEmpty() || text.size() > longest || texts.value(0) == text)
        return;
    texts.removeAll(text);
    texts.prepend(text);
    std::vector<Setting> settings;
    for (qsizetype place = 0; place < std::min(most, texts.size()); ++place)
        settings.push_back({section, keyOf(place), texts[place]});
    m_store.write(settings);
}

} // namespace lorvan

#include "cashbook/description_suggestions.h"

#include "controls/suggesting_field.h"

#include <utility>

namespace lorvan {

DescriptionSuggestions::DescriptionSuggestions(SuggestingField* field, Code code, BookFiles files, KeyRing& keys)
    : QObject(field)
    , m_field(field)
    , m_code(std::move(code))
    , m_reader(std::move(files), keys, [](const QString&) {})
{
    field->setSuggesting([this](const QString& typed) { return restOf(typed); });
}

void DescriptionSuggestions::forget()
{
    if (!std::exchange(m_isAsked, false))
        return;
    m_reader.cancel();
    m_offers = {};
    m_field->suggestAgain();
}

QString DescriptionSuggestions::restOf(const QString& typed)
{
    const qint32 code = m_code();
    if (code != 0 && !std::exchange(m_isAsked, true)) {
        m_reader.begin([this, code](Connection& main) -> BookReader::Show {
            return [this, offers = readDescriptionOffers(main, code)] {
                m_offers = offers;
                m_field->suggestAgain();
            };
        });
    }
    return m_offers.rest(typed);
}

} // namespace lorvan

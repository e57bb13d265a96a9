#pragma once

#include "controls/book_reader.h"
#include "movements/description_offers.h"

#include <QObject>

namespace lorvan {

class SuggestingField;

/// Has the description field suggest what the movements of the chosen code were called before. They are read when the
/// first letter is typed, in a thread of its own; if they cannot be read, nothing is suggested.
class DescriptionSuggestions : public QObject {
    Q_OBJECT

public:
    using Code = std::function<qint32()>; ///< The chosen code; 0 if none is.

    /// The keys must outlive it.
    DescriptionSuggestions(SuggestingField* field, Code code, BookFiles files, KeyRing& keys);

    /// The code or its movements have changed: what was read counts no more, and what is being read is given up.
    void forget();

private:
    [[nodiscard]] QString restOf(const QString& typed);

    SuggestingField* m_field;
    const Code m_code;
    DescriptionOffers m_offers;
    bool m_isAsked = false;
    BookReader m_reader;
};

} // namespace lorvan

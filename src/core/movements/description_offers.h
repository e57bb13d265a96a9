#pragma once

#include <QString>

#include <vector>

namespace lorvan {

class Connection;

/// What the movements of a code are called, in capitals: the most frequent description first, of equally frequent ones
/// the latest. Letter case, accents and blanks at the ends make no difference.
class DescriptionOffers {
public:
    DescriptionOffers() = default;
    explicit DescriptionOffers(const std::vector<QString>& latestFirst);

    /// How the first description that is longer than the typed text and begins with it goes on; empty if there is none
    /// or nothing was typed.
    [[nodiscard]] QString rest(const QString& typed) const;

private:
    struct Offer {
        QString text;
        QString folded; ///< As long as the text.
        int count = 0;
    };
    std::vector<Offer> m_offers;
};

/// From the last 500 movements of a code, by day, found through an index. Throws SqlError.
[[nodiscard]] DescriptionOffers readDescriptionOffers(Connection& main, qint32 code);

} // namespace lorvan

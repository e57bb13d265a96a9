#pragma once

#include "platform/currency.h"

#include <QString>

#include <optional>
#include <vector>

namespace lorvan {

/// The sums that stand where a table is broken into two pages.
struct CarriedSums {
    QString name; ///< Of the code or group that the rows belong to; may be empty.
    std::vector<int> columns; ///< Ascending.
    std::vector<Currency> sums; ///< One for each of the columns.
};

/// Which rows of a document add up in which columns, and their running sums. Items are numbered as in the document.
class CarriedRows {
public:
    /// The items from `item` on, until the next call, belong together.
    void begin(int item, const std::vector<int>& columns, const QString& name);
    /// The items from `item` on add nothing up.
    void end(int item);
    /// The amounts of the next row in the columns given to begin(); does nothing without one. Throws CurrencyOverflow.
    void add(const std::vector<Currency>& amounts);
    void clear();
    [[nodiscard]] bool isEmpty() const { return m_sums.empty(); }

    /// What a page that begins with this item carries; none if a section begins there, or nothing was added up yet.
    [[nodiscard]] std::optional<CarriedSums> before(int item) const;
    /// Whether before() has a value, at less cost.
    [[nodiscard]] bool isCarriedInto(int item) const { return sectionOf(item) != nullptr; }
    /// The item that begins the section of an item for which isCarriedInto() holds.
    [[nodiscard]] int firstItem(int item) const { return sectionOf(item)->first; }

private:
    struct Section {
        int first = 0;
        int end = 0; ///< One past its last item; open while it is being written.
        QString name;
        std::vector<int> columns;
        std::size_t firstSum = 0; ///< In m_sums.
        int rows = 0; ///< With amounts: its first ones.
    };
    [[nodiscard]] const Section* sectionOf(int item) const;

    std::vector<Section> m_sections;
    std::vector<Currency> m_sums; ///< Up to each row of its section, for all its columns.
    bool m_isOpen = false;
};

} // namespace lorvan

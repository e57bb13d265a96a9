#include "platform/row_filter.h"

#include "platform/search_text.h"

#include <algorithm>
#include <iterator>

namespace lorvan {

std::vector<bool> rowsThatMatch(const QStringList& rows, const QString& text)
{
    const SearchText wanted(text.trimmed());
    if (wanted.isEmpty())
        return std::vector<bool>(static_cast<std::size_t>(rows.size()), true);
    std::vector<bool> shown;
    std::transform(rows.begin(), rows.end(), std::back_inserter(shown),
        [&wanted](const QString& row) { return wanted.beginsWordIn(row); });
    if (std::find(shown.begin(), shown.end(), true) == shown.end())
        std::transform(rows.begin(), rows.end(), shown.begin(),
            [&wanted](const QString& row) { return wanted.indexIn(row) >= 0; });
    return shown;
}

} // namespace lorvan

#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace lorvan {

struct SearchToken {
    QString text; ///< Without its quotes. Never empty, nor blank.
    bool isQuoted = false;
};

/// Divides what was typed at its blanks and at its quotes, "…" or «…»; a quote that is not closed reaches to the end.
[[nodiscard]] std::vector<SearchToken> searchTokens(QStringView typed);

} // namespace lorvan

#include "platform/padding.h"

#include <algorithm>

namespace lorvan {

QString rightAligned(QStringView text, qsizetype width)
{
    const QStringView trimmed = text.trimmed();
    const QStringView shown = trimmed.last(std::min(width, trimmed.size()));
    QString aligned(width, u' ');
    std::copy(shown.begin(), shown.end(), aligned.end() - shown.size());
    return aligned;
}

QString leftAligned(QStringView text, qsizetype width)
{
    const QStringView trimmed = text.trimmed();
    const QStringView shown = trimmed.first(std::min(width, trimmed.size()));
    QString aligned(width, u' ');
    std::copy(shown.begin(), shown.end(), aligned.begin());
    return aligned;
}

} // namespace lorvan

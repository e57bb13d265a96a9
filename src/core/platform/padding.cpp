#include "platform/padding.h"

namespace lorvan {

QString rightAligned(QStringView text, qsizetype width)
{
    return text.trimmed().toString().rightJustified(width, u' ').last(width);
}

QString leftAligned(QStringView text, qsizetype width)
{
    return text.trimmed().toString().leftJustified(width, u' ', true);
}

} // namespace lorvan

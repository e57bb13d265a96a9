#include "book/version.h"

namespace lorvan {

QString programVersion()
{
    return QStringLiteral(LORVAN_VERSION);
}

} // namespace lorvan

#include "app/version.h"

namespace lorvan {

QString programVersion()
{
    return QStringLiteral(LORVAN_VERSION);
}

} // namespace lorvan

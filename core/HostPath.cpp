#include "core/HostPath.h"

#include "core/Ansi.h"
#include "platform/PathMap.h"

namespace qlon {

QString HostPath(QByteArrayView sitePath)
{
    return SitePaths().toHost(FromAnsi(sitePath));
}

} // namespace qlon

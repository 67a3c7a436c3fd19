#include "fuzz/FuzzSite.h"

#include "platform/PathMap.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace qlon::fuzz {

QString WriteSiteFile(const QString &relative, const uint8_t *data, size_t size)
{
    static QTemporaryDir drive;
    static const bool mapped = (SitePaths().mapDrive(QLatin1Char('C'), drive.path()), true);
    Q_UNUSED(mapped);
    const QString path = drive.filePath(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    return path;
}

} // namespace qlon::fuzz

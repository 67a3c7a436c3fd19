#include "core/HostPath.h"

#include "core/Ansi.h"
#include "core/RuntimeError.h"
#include "platform/PathMap.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace qlon {

namespace {

bool isRefusedInName(char byte)
{
    return uchar(byte) < 32 || QByteArrayView("<>\"|?*").contains(byte);
}

bool isValidSitePath(QByteArrayView path)
{
    const qsizetype afterDrive = path.size() >= 2 && path[1] == ':' ? 2 : 0;
    return std::ranges::none_of(path.sliced(afterDrive), [](char byte) { return byte == ':' || isRefusedInName(byte); });
}

// The path as it can be shown: control characters as \xNN.
QString shownPath(QByteArrayView path)
{
    QString shown;
    for (const char byte : path)
        shown += uchar(byte) < 32 ? QStringLiteral("\\x%1").arg(uchar(byte), 2, 16, QLatin1Char('0')) : FromAnsi(QByteArrayView(&byte, 1));
    return shown;
}

// The site paths of the host paths given lately; a few hundred files at the most, then afresh.
QHash<QString, QByteArray> &recentSitePaths()
{
    static QHash<QString, QByteArray> paths;
    return paths;
}

} // namespace

QString HostPath(QByteArrayView sitePath)
{
    if (!isValidSitePath(sitePath))
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, shownPath(sitePath));
    QString host = SitePaths().toHost(FromAnsi(sitePath));
    QHash<QString, QByteArray> &recent = recentSitePaths();
    if (recent.size() > 512)
        recent.clear();
    recent.insert(host, sitePath.toByteArray());
    return host;
}

QByteArray SitePathOf(const QString &hostPath)
{
    return recentSitePaths().value(hostPath);
}

bool FileExists(const QString &hostPath)
{
    return QFileInfo(hostPath).isFile();
}

} // namespace qlon

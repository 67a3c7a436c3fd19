#include "platform/PathMap.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace qlon {

namespace {

QChar driveKey(QChar letter)
{
    return letter.toUpper();
}

bool isDriveName(const QString &part)
{
    return part.size() == 2 && part[0].isLetter() && part[1] == QLatin1Char(':');
}

// The entry of `folder` whose name equals `name` without regard to case; the exact
// spelling wins, and among several others the first in sorted order.
QString findEntry(const QString &folder, const QString &name)
{
    const QDir dir(folder);
    if (QFileInfo::exists(dir.filePath(name)))
        return name;
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return name;
}

} // namespace

QString PathMap::defaultFolder(QChar driveLetter)
{
#ifdef Q_OS_WIN
    return QString(driveKey(driveLetter)) + QStringLiteral(":/");
#else
    return QStringLiteral("/mnt/") + driveLetter.toLower();
#endif
}

void PathMap::mapDrive(QChar driveLetter, const QString &hostFolder)
{
    m_drives.insert(driveKey(driveLetter), QDir::cleanPath(QDir(hostFolder).absolutePath()));
}

bool PathMap::mapDrive(const QString &option)
{
    static const QRegularExpression form(QStringLiteral("^([A-Za-z]):?=(.+)$"));
    const QRegularExpressionMatch match = form.match(option);
    if (!match.hasMatch())
        return false;
    mapDrive(match.captured(1).at(0), match.captured(2));
    return true;
}

QString PathMap::folderOf(QChar driveLetter) const
{
    return m_drives.value(driveKey(driveLetter), defaultFolder(driveLetter));
}

QString PathMap::toHost(const QString &windowsPath) const
{
    QStringList parts = windowsPath.split(QRegularExpression(QStringLiteral("[\\\\/]")));
    QString host;
    if (!parts.isEmpty() && isDriveName(parts.first())) {
        host = folderOf(parts.takeFirst().at(0));
    } else if (windowsPath.startsWith(QLatin1Char('\\')) || windowsPath.startsWith(QLatin1Char('/'))) {
        host = folderOf(QLatin1Char('C'));
    } else {
        host = QDir::currentPath();
    }
    for (const QString &part : std::as_const(parts)) {
        if (part.isEmpty() || part == QLatin1String("."))
            continue;
        host = (part == QLatin1String("..")) ? QFileInfo(host).path() : host + QLatin1Char('/') + findEntry(host, part);
    }
    return host;
}

PathMap &SitePaths()
{
    static PathMap paths;
    return paths;
}

} // namespace qlon

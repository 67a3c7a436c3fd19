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

QHash<QString, QString> listingOf(const QString &folder)
{
    QHash<QString, QString> entries;
    const QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : names) {
        const QString key = entry.toCaseFolded();
        if (!entries.contains(key))
            entries.insert(key, entry);
    }
    return entries;
}

} // namespace

// The entry of `folder` whose name equals `name` without regard to case; the exact spelling
// wins, and among several others the first in sorted order.
QString PathMap::findEntry(const QString &folder, const QString &name) const
{
    if (QFileInfo::exists(QDir(folder).filePath(name)))
        return name;
    const QString key = name.toCaseFolded();
    const auto kept = m_listings.constFind(folder);
    if (kept != m_listings.constEnd()) {
        if (const auto found = kept->constFind(key); found != kept->constEnd())
            return *found;
    }
    const Listing &listed = m_listings.insert(folder, listingOf(folder)).value();
    return listed.value(key, name);
}

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
    static const QRegularExpression separators(QStringLiteral("[\\\\/]"));
    QStringList parts = windowsPath.split(separators);
    // A path without a drive is on drive C:, from its root: the program stands in no folder of
    // the host, so that no path leads out of the folders the mapping gives.
    const QString root = !parts.isEmpty() && isDriveName(parts.first()) ? folderOf(parts.takeFirst().at(0)) : folderOf(QLatin1Char('C'));
    QString host = root;
    for (const QString &part : std::as_const(parts)) {
        if (part.isEmpty() || part == QLatin1String("."))
            continue;
        if (part != QLatin1String(".."))
            host += QLatin1Char('/') + findEntry(host, part);
        else if (host != root) // as on Windows, ".." at a drive's root stays there
            host = QFileInfo(host).path();
    }
    return host;
}

PathMap &SitePaths()
{
    static PathMap paths;
    return paths;
}

} // namespace qlon

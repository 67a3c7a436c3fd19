#include "tests/support/TempSite.h"

#include "core/FileTable.h"
#include "platform/PathMap.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace qlon::test {

TempSite::TempSite()
{
    SitePaths().mapDrive(QLatin1Char('C'), m_folder.path());
}

TempSite::~TempSite()
{
    CloseAll();
    SitePaths().mapDrive(QLatin1Char('C'), PathMap::defaultFolder(QLatin1Char('C')));
}

QString TempSite::hostPath(const QString &relative) const
{
    return QDir(m_folder.path()).filePath(relative);
}

QString TempSite::write(const QString &relative, const QByteArray &bytes) const
{
    const QString path = hostPath(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "could not write " << path.toStdString();
    return path;
}

QByteArray TempSite::read(const QString &relative) const
{
    QFile file(hostPath(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList FilesBelow(const QString &folder)
{
    QStringList paths;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext())
        paths.append(QDir(folder).relativeFilePath(walk.next()));
    paths.sort();
    return paths;
}

} // namespace qlon::test

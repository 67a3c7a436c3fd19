#include "platform/SiteSettings.h"

#include "platform/PathMap.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace qlon {

namespace {

const QString drivesKey = QStringLiteral("site/drives");
const QString configuration = QStringLiteral("C:\\Quillon\\QlonINI.dat");

QChar letterOf(const QString &mapping)
{
    return mapping.isEmpty() ? QChar() : mapping.at(0).toUpper();
}

bool holdsSite(const QString &driveFolder)
{
    PathMap candidate;
    candidate.mapDrive(QLatin1Char('C'), driveFolder);
    return QFileInfo(candidate.toHost(configuration)).isFile();
}

} // namespace

SiteSettings::SiteSettings(QString file)
    : m_file(std::move(file))
{
}

QString SiteSettings::defaultFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/qlon/qlon.ini");
}

QStringList SiteSettings::drives() const
{
    return QSettings(m_file, QSettings::IniFormat).value(drivesKey).toStringList();
}

void SiteSettings::saveDrive(const QString &mapping) const
{
    QStringList kept;
    for (const QString &saved : drives()) {
        if (letterOf(saved) != letterOf(mapping))
            kept.append(saved);
    }
    kept.append(mapping);
    QSettings(m_file, QSettings::IniFormat).setValue(drivesKey, kept);
}

void SiteSettings::apply(const QStringList &commandLineDrives) const
{
    QString givenLetters;
    for (const QString &given : commandLineDrives)
        givenLetters += letterOf(given);
    for (const QString &saved : drives()) {
        if (!givenLetters.contains(letterOf(saved)))
            SitePaths().mapDrive(saved);
    }
}

bool SiteFound()
{
    return QFileInfo(SitePaths().toHost(configuration)).isFile();
}

QString SiteDriveOf(const QString &folder)
{
    const QString picked = QDir::cleanPath(QDir(folder).absolutePath());
    if (holdsSite(picked))
        return QStringLiteral("C=") + picked;
    const QFileInfo pickedInfo(picked);
    if (pickedInfo.fileName().compare(QLatin1String("Quillon"), Qt::CaseInsensitive) == 0 && holdsSite(pickedInfo.path()))
        return QStringLiteral("C=") + pickedInfo.path();
    return {};
}

} // namespace qlon

#pragma once

#include <QChar>
#include <QHash>
#include <QMap>
#include <QString>

namespace qlon {

// Turns the site's Windows paths ("c:\Quillon\data\Departments.dat") into paths of this host.
// A drive letter stands for a host folder, and each name below it is looked up without regard
// to case, so that data\LiqModifiers.dat and data\liqModifiers.dat are one file. A name that
// doesn't exist yet keeps the spelling the program uses, so new files are created as written.
// A folder is listed once, when a name in it is first looked up in another spelling, and again
// only when a name isn't in the listing kept, as a file made since then wouldn't be.
class PathMap
{
public:
    // The folder that a drive letter stands for when no mapping names it.
    static QString defaultFolder(QChar driveLetter);

    void mapDrive(QChar driveLetter, const QString &hostFolder);
    // Reads a mapping written as "C=/srv/pos"; false when the text isn't of that form.
    bool mapDrive(const QString &option);
    QString folderOf(QChar driveLetter) const;

    QString toHost(const QString &windowsPath) const;

private:
    // A folder's entries by their case-folded names, the first in sorted order for each.
    using Listing = QHash<QString, QString>;

    QString findEntry(const QString &folder, const QString &name) const;

    QMap<QChar, QString> m_drives;
    mutable QHash<QString, Listing> m_listings; // by host folder
};

// The one mapping that the whole program uses; set from the command line at start.
PathMap &SitePaths();

} // namespace qlon

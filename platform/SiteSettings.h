#pragma once

#include <QString>
#include <QStringList>

namespace qlon {

// The site a manager pointed the program at, remembered in the user's configuration folder
// (qlon/qlon.ini): its drive mappings, written as --drive takes them ("C=/srv/pos"). A mapping
// given on the command line wins over the saved one of the same letter.
class SiteSettings
{
public:
    explicit SiteSettings(QString file = defaultFile());
    static QString defaultFile();

    QStringList drives() const;
    // Keeps the mapping in place of any saved one of the same letter.
    void saveDrive(const QString &mapping) const;
    // Maps, in the program's one mapping, the saved drives whose letter `commandLineDrives` leaves.
    void apply(const QStringList &commandLineDrives) const;

private:
    QString m_file;
};

// The site's configuration, C:\Quillon\QlonINI.dat, is there under the program's mapping.
bool SiteFound();

// The mapping of drive C: for a folder a manager picked: the folder that holds Quillon\, or the
// Quillon folder itself, whose parent is then C:. Empty when neither holds QlonINI.dat.
QString SiteDriveOf(const QString &folder);

} // namespace qlon

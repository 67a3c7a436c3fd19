#pragma once

#include "store/IniRec2300.h"

#include <QByteArray>
#include <QString>

namespace qlon {

// The site's folders, set once at start-up from QlonINI.dat. Paths are Windows paths of the
// site, made by plain joining: a folder without a trailing backslash gives "D:\SITEdata\...".
struct SiteGlobals
{
    QByteArray SiteRoot;
    QByteArray DataRoot;
    QByteArray EmployeeRoot;
    QByteArray SecondRoot;
    QByteArray IniPath;
    // The one copy of the configuration record that other screens read after start-up.
    IniRec2300 Config;
};

SiteGlobals &Site();

inline const QByteArray DefaultSiteRoot = QByteArrayLiteral("C:\\Quillon\\");
// Deliberately in lower case, unlike the default site root: both spellings stand in the program.
inline const QByteArray DefaultDataRoot = QByteArrayLiteral("c:\\Quillon\\");
constexpr int ConfigFileNumber = 2;

// Reads QlonINI.dat from the fixed folder C:\Quillon\ into the globals. A missing file leaves
// DataRoot empty. The file stays open and locked until the next CloseAll; a file held
// elsewhere raises "Permission denied".
void ReadConfiguration();

// The site's name as the configuration gives it, or else the name of the folder drive C: stands
// for; after ReadConfiguration.
QString NameOfSite();

// Readers of the database and of the reports first make sure of DataRoot.
void EnsureDataRoot();
// DataRoot joined with a relative site path, after EnsureDataRoot.
QByteArray DataPath(QByteArrayView relativePath);

} // namespace qlon

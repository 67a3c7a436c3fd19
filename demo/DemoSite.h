#pragma once

#include <QDate>
#include <QString>

namespace qlon {

// Writes a demonstration site into `driveFolder`, the host folder that drive C: stands for:
// C:\Quillon\QlonINI.dat, data\ListbuilderINI.dat starting on the week before `today`,
// data\Departments.dat, the catalogue of item, drink and retail files with their recipes and
// the stock file, and the empty Temp folder that the rebuild writes into.
// Existing files of the same names are replaced.
void WriteDemoSite(const QString &driveFolder, QDate today);

} // namespace qlon

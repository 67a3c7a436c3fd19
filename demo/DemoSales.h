#pragma once

#include <QDate>
#include <QString>

namespace qlon {

// Writes the sales database data\Quillon.mdb (an SQLite file) of the demonstration site: about
// three months of orders up to the day before `today`, for the items of the catalogue already
// written into `siteFolder` (the host folder of C:\Quillon). Lunch and dinner make the peaks;
// modifiers stand as lines of their own; a few lines fall after hours, and a few carry a broken
// date or time, as a station's faults leave them. The same arguments write the same rows.
void WriteDemoSales(const QString &siteFolder, QDate today);

} // namespace qlon

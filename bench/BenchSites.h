#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

namespace qlon::bench {

// Generated sites of the sizes the benchmarks measure, written once under the build folder
// (QLON_BENCH_DATA) and kept for later runs: each call gives the folder that drive C: stands for,
// with the site in its Quillon folder. A site is written whole before it counts as there.

// The day the sales sites take as today: the week of sales ends the day before.
inline const QDate SalesToday{2026, 11, 24};
inline constexpr int SalesItemCount = 2000;

// The name of an item of the sales sites, as the catalogue and the sales rows both spell it.
QByteArray SalesItemName(int index);
// The server whose rows the server screen benchmark searches.
inline constexpr QByteArrayView SearchedServer{"1017"};

// A week of sales, `rows` lines of 2,000 items in data\Quillon.mdb (SQLite), all of them in the
// span of the main screen's start dates, and the merged catalogue of those items in Temp\, so that
// Load List takes them all.
QString SalesSite(int rows);
// The same site with data\Quillon.mdb turned into a Jet 4 file.
QString JetSalesSite(int rows);
// A year (2025) of monthly sales files of `lines` lines in all, and some 4,000 catalogue rows.
QString MonthlySalesSite(int lines);
// The catalogue of `fileCount` files of `recordsPerFile` records, in the order the rebuild gathers.
QString CatalogueSite(int fileCount, int recordsPerFile);

// The host path of the site's sales database (SQLite or Jet).
QString SalesDatabasePath(const QString &driveFolder);

} // namespace qlon::bench

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QString>

#include <functional>
#include <memory>

namespace qlon {

class SalesStore;

// One day's sales rows of a site in COPY's text form (without the site), and their digest.
struct DayRows
{
    QByteArray lines;
    int count = 0;
    QByteArray digest;
};

// What a site holds for the chain database, read through the program's own readers: the sales
// rows normalised as the reports read them, by day ("" for the rows whose date can't be read),
// and the main screen's lists.
struct SiteSnapshot
{
    QString name;
    QMap<QByteArray, DayRows> days;
    qint64 rowCount = 0;
    // The merged catalogue as Load List lists every item: its row text, tag and type.
    QByteArray catalogueLines;
    QByteArray catalogueDigest;
    // The main screen's departments, in the order of its category box.
    QByteArray departmentLines;
    QByteArray departmentsDigest;
    // The lines of the monthly sales files as the Items Sold scan reads them, by file and day: the
    // file's month and the day ("2026-11-01 2026-11-05"), or the month alone ("2026-11-01 ") for
    // the file's lines whose date can't be read.
    QMap<QByteArray, DayRows> monthDays;
    qint64 monthRowCount = 0;
    // The Items Sold screen's lists: the catalogue of each report option as it holds it for a scan,
    // and its departments.
    QByteArray itemListLines;
    QByteArray itemListsDigest;
};

// A row's OrderDate as the platform reads it: its day, the key of its day's rows, and its date and
// time, which the select of a report's span compares; both "" when the date can't be read.
struct RowDate
{
    QByteArray day;
    QByteArray at;
};
RowDate ReadRowDate(QByteArrayView orderDate);

// Reads the sales of the store into days; `progress` hears of every 100,000 rows read.
void ReadSales(SalesStore &store, SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress);

// Reads the lines of the site's monthly sales files; raises RuntimeError, naming the file, when
// one can't be read.
void ReadMonthlySales(SiteSnapshot &snapshot);

// Reads the site that drive C: stands for, all but its sales rows: the configuration first, the
// lists and the monthly files; then opens its sales store for ReadSales. Raises the program's
// RuntimeError, naming the file, when a file can't be read. `name` as ReadSite takes it.
std::unique_ptr<SalesStore> OpenSite(const QString &name, SiteSnapshot &snapshot);

// Reads the site that drive C: stands for, the configuration first; raises the program's
// RuntimeError, naming the file, when a file can't be read. `name` empty: the site's SiteName,
// or else the name of the folder that drive C: stands for.
SiteSnapshot ReadSite(const QString &name, const std::function<void(qint64 rows)> &progress);

} // namespace qlon

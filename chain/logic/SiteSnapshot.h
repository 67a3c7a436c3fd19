#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QString>

#include <functional>

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

// Reads the site that drive C: stands for, the configuration first; raises the program's
// RuntimeError, naming the file, when a file can't be read. `name` empty: the site's SiteName,
// or else the name of the folder that drive C: stands for.
SiteSnapshot ReadSite(const QString &name, const std::function<void(qint64 rows)> &progress);

} // namespace qlon

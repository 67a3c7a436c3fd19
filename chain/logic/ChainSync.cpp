#include "chain/logic/ChainSync.h"

#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "chain/logic/SiteSnapshot.h"

#include <QHash>

namespace qlon {

namespace {

constexpr qint64 rowsPerCopy = 200000;

// The site and its partition, in a transaction of their own: creating a partition locks the whole
// table of sales, which must not last a sync's length.
int registerSite(ChainDatabase &database, const QString &name)
{
    ChainTransaction transaction(database);
    database.exec("INSERT INTO sites (name) VALUES ($1) ON CONFLICT (name) DO NOTHING", {name.toUtf8()});
    const int id = database.exec("SELECT site_id FROM sites WHERE name = $1", {name.toUtf8()}).value(0, 0).toInt();
    EnsureSitePartition(database, id);
    transaction.commit();
    return id;
}

QHash<QByteArray, QByteArray> storedDigests(ChainDatabase &database, const QByteArray &site)
{
    QHash<QByteArray, QByteArray> digests;
    const ChainResult result = database.exec("SELECT day_key, digest FROM site_days WHERE site_id = $1", {site});
    for (int row = 0; row < result.rowCount(); ++row)
        digests.insert(result.value(row, 0), result.value(row, 1));
    return digests;
}

// A text array of day keys: ISO dates, or the empty key of the rows without a date.
QByteArray dayArray(const QByteArrayList &days)
{
    QByteArrayList quoted;
    for (const QByteArray &day : days)
        quoted.append('"' + day + '"');
    return '{' + quoted.join(',') + '}';
}

// A date array of the day keys that are dates.
QByteArray dateArray(const QByteArrayList &days)
{
    QByteArray dates = "{";
    for (const QByteArray &day : days) {
        if (!day.isEmpty())
            dates.append((dates.size() > 1 ? "," : "") + day);
    }
    return dates + '}';
}

// The days' rows and sums go; their digests stay until the new ones are written, last.
void deleteDays(ChainDatabase &database, const QByteArray &site, const QByteArrayList &days)
{
    database.exec("DELETE FROM sales WHERE site_id = $1 AND day = ANY($2::date[])", {site, dateArray(days)});
    database.exec("DELETE FROM day_sales WHERE site_id = $1 AND day = ANY($2::date[])", {site, dateArray(days)});
    if (days.contains(QByteArray()))
        database.exec("DELETE FROM sales WHERE site_id = $1 AND day IS NULL", {site});
}

// Prefixes every line with the site.
QByteArray withSite(const QByteArray &site, const QByteArray &lines)
{
    QByteArray prefixed;
    prefixed.reserve(lines.size() + lines.count('\n') * (site.size() + 1));
    for (qsizetype at = 0; at < lines.size();) {
        const qsizetype end = lines.indexOf('\n', at) + 1;
        prefixed.append(site + '\t');
        prefixed.append(QByteArrayView(lines).sliced(at, end - at));
        at = end;
    }
    return prefixed;
}

// Writes the changed days' rows in batches of COPY, then the digests of all days replaced, those
// gone included.
qint64 writeDays(ChainDatabase &database, const QByteArray &site, const SiteSnapshot &snapshot, const QByteArrayList &days,
    const QByteArrayList &allDays, const std::function<void(qint64 rows)> &progress)
{
    // Straight into the site's partition: no routing of each row.
    const QByteArray copySales = "COPY sales_site_" + site +
        " (site_id, seq, day, order_at, sold_at, time_from, cents, price_from, units, quantity_from, receipt,"
        " receipt_from, item, item_type, item_text, order_date_text, time_text, price_text, quantity_text)"
        " FROM STDIN";
    QByteArray batch;
    qint64 inBatch = 0;
    qint64 written = 0;
    const auto send = [&] {
        database.copyIn(copySales, batch);
        written += inBatch;
        progress(written);
        batch.clear();
        inBatch = 0;
    };
    QByteArray digests;
    for (const QByteArray &day : days) {
        const DayRows rows = snapshot.days.value(day);
        batch.append(withSite(site, rows.lines));
        inBatch += rows.count;
        digests.append(site + '\t' + day + '\t' + rows.digest + '\t' + QByteArray::number(rows.count) + '\n');
        if (inBatch >= rowsPerCopy)
            send();
    }
    if (inBatch > 0)
        send();
    database.exec("DELETE FROM site_days WHERE site_id = $1 AND day_key = ANY($2::text[])", {site, dayArray(allDays)});
    if (!digests.isEmpty())
        database.copyIn("COPY site_days (site_id, day_key, digest, row_count) FROM STDIN", digests);
    return written;
}

// Replaces a list of the site when its digest changed; whether it did.
bool replaceList(ChainDatabase &database, const QByteArray &site, const QByteArray &table, const QByteArray &columns,
    const QByteArray &lines, const QByteArray &digest)
{
    const QByteArray digestColumn = table + "_digest";
    if (database.exec("SELECT " + digestColumn + " FROM sites WHERE site_id = $1", {site}).value(0, 0) == digest)
        return false;
    database.exec("DELETE FROM " + table + " WHERE site_id = $1", {site});
    if (!lines.isEmpty())
        database.copyIn("COPY " + table + " (site_id, " + columns + ") FROM STDIN", withSite(site, lines));
    database.exec("UPDATE sites SET " + digestColumn + " = $2 WHERE site_id = $1", {site, digest});
    return true;
}

} // namespace

SyncOutcome SyncSite(ChainDatabase &database, const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress)
{
    const QByteArray site = QByteArray::number(registerSite(database, snapshot.name));
    ChainTransaction transaction(database);
    LockSite(database, site.toInt());
    QHash<QByteArray, QByteArray> stored = storedDigests(database, site);
    const bool firstRows = stored.isEmpty();
    QByteArrayList changed;
    for (auto day = snapshot.days.cbegin(); day != snapshot.days.cend(); ++day) {
        if (stored.take(day.key()) != day->digest)
            changed.append(day.key());
    }
    SyncOutcome outcome;
    const QByteArrayList replaced = changed + stored.keys();
    outcome.daysReplaced = int(replaced.size());
    if (!replaced.isEmpty()) {
        deleteDays(database, site, replaced);
        outcome.rowsWritten = writeDays(database, site, snapshot, changed, replaced, progress);
        database.exec(DaySumsInsert("site_id = $1 AND day = ANY($2::date[])"), {site, dateArray(changed)});
    }
    const bool catalogue =
        replaceList(database, site, "catalogue", "position, text, tag, type", snapshot.catalogueLines, snapshot.catalogueDigest);
    const bool departments =
        replaceList(database, site, "departments", "position, name", snapshot.departmentLines, snapshot.departmentsDigest);
    outcome.listsWritten = catalogue || departments;
    // The planner reads a week through the index only when it knows how many rows a day holds; later
    // changes of a few days leave the figures to the server's own analysis.
    if (firstRows && outcome.rowsWritten > 0)
        database.exec("ANALYZE sales_site_" + site + ", day_sales");
    if (outcome.daysReplaced > 0 || outcome.listsWritten)
        database.exec("UPDATE sites SET synced_at = now() WHERE site_id = $1", {site});
    transaction.commit();
    return outcome;
}

} // namespace qlon

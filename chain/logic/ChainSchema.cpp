#include "chain/logic/ChainSchema.h"

#include "chain/logic/ChainDatabase.h"

#include <QStringList>

namespace qlon {

namespace {

// The two keys of the program's advisory locks: "qlon" and what is locked.
const QByteArray lockClass = QByteArray::number(0x716c6f6e);
constexpr int schemaLock = 0;

// Version 1: the sites; their sales, one partition per site (the key a sharding extension
// distributes by), read by day through the index; the digest of each day's rows, which tells a
// sync what changed; each site's merged catalogue and departments as the main screen lists them.
const QByteArrayList versionOne = {
    "CREATE TABLE sites (site_id serial PRIMARY KEY, name text NOT NULL UNIQUE,"
    " catalogue_digest text NOT NULL DEFAULT '', departments_digest text NOT NULL DEFAULT '',"
    " synced_at timestamptz)",
    // A row as the reports read it: `day` and `sold_at` as the platform reads OrderDate and Time
    // (null when they can't be read); for a null Time, the time the item's row before left and
    // that row's day; `item` trimmed, or the item of the row before for a null one; `cents` the
    // price rounded as Calculate Sales adds it, `units` the quantity's numeric value; beside them
    // the raw texts. `seq` is the row's place in the site's table, whose order the reports keep.
    // No foreign key: a site's partition exists only for a site of the table, and a key checked on
    // every row would cost a sync more than the rows themselves.
    "CREATE TABLE sales (site_id integer NOT NULL, seq bigint NOT NULL, day date, sold_at time,"
    " carried_day date, carried_sold_at time, item text, cents bigint NOT NULL, units double precision NOT NULL,"
    " item_type text, receipt text, item_text text, order_date_text text, time_text text, price_text text,"
    " quantity_text text) PARTITION BY LIST (site_id)",
    "CREATE INDEX sales_by_day ON sales (site_id, day, item)",
    "CREATE TABLE site_days (site_id integer NOT NULL REFERENCES sites, day_key text NOT NULL, digest text NOT NULL,"
    " row_count integer NOT NULL, PRIMARY KEY (site_id, day_key))",
    "CREATE TABLE catalogue (site_id integer NOT NULL REFERENCES sites, position integer NOT NULL, text text NOT NULL,"
    " tag text NOT NULL, type text NOT NULL, PRIMARY KEY (site_id, position))",
    "CREATE TABLE departments (site_id integer NOT NULL REFERENCES sites, position integer NOT NULL, name text NOT NULL,"
    " PRIMARY KEY (site_id, position))",
};

// Version 2: a row holds its OrderDate's date and time as well, which the select of a span
// compares, so that a sale whose date holds a time of day lies after its day's midnight. A time,
// price, quantity or receipt that a null took from the item's row before comes with that row's date
// and time (`time_from`, `price_from`, `quantity_from`, `receipt_from`; null for the row's own
// value): it counts only when that row lies in the span's select too. The rows of version 1 lack
// them: they go, and each site's next sync writes its days again.
const QByteArrayList versionTwo = {
    "TRUNCATE sales, site_days",
    "ALTER TABLE sales DROP COLUMN carried_day, DROP COLUMN carried_sold_at, ADD COLUMN order_at timestamp,"
    " ADD COLUMN time_from timestamp, ADD COLUMN price_from timestamp, ADD COLUMN quantity_from timestamp,"
    " ADD COLUMN receipt_from timestamp",
};

// Version 3: each site's days summed by item over the rows that count whatever a span's hours: a
// report reads the days inside its span from these sums, and the rows themselves only on its first
// and last days, whose hours cut them, and where a value came from another row. The sums of the
// rows already there are written at once.
const QByteArrayList versionThree = {
    "CREATE TABLE day_sales (site_id integer NOT NULL, day date NOT NULL, item text NOT NULL, cents bigint NOT NULL,"
    " units double precision NOT NULL, PRIMARY KEY (site_id, day, item))",
    QByteArray("CREATE INDEX sales_carried ON sales (site_id, day) WHERE ") + CarriedRow,
    DaySumsInsert("TRUE"),
};

// Version 4: the lines of the monthly sales files, which the Items Sold report reads. A line is
// stored as the scan reads it: `month` the file's month (the first of it), `seq` its place in the
// file, `day` and `sold_minute` its date and its time in whole minutes as the platform reads them
// (null when they can't be read), `units` and `amount` the quantity and price as the scan adds
// them, `gift_amount` the price a gift card's line adds (null for any other line),
// `missing_modes` the report letters under which the line is reported missing when no catalogue
// row names it, `item` trimmed; beside them the raw texts. The digest of each file's day (or of its
// lines without a date) tells a sync what changed. The Items Sold lists of each site: the catalogue
// of each report option as the screen holds it for a scan, and its departments.
const QByteArrayList versionFour = {
    "CREATE TABLE monthly_sales (site_id integer NOT NULL, month date NOT NULL, seq bigint NOT NULL, day date,"
    " sold_minute time, units double precision NOT NULL, amount double precision NOT NULL, gift_amount double precision,"
    " missing_modes text NOT NULL, item text NOT NULL, date_text text, quantity_text text, item_text text, price_text text,"
    " type_text text, time_text text) PARTITION BY LIST (site_id)",
    "CREATE INDEX monthly_sales_by_day ON monthly_sales (site_id, month, day)",
    "CREATE TABLE monthly_days (site_id integer NOT NULL REFERENCES sites, day_key text NOT NULL, digest text NOT NULL,"
    " row_count integer NOT NULL, PRIMARY KEY (site_id, day_key))",
    "CREATE TABLE item_lists (site_id integer NOT NULL REFERENCES sites, list text NOT NULL, position integer NOT NULL,"
    " text text NOT NULL, PRIMARY KEY (site_id, list, position))",
    "ALTER TABLE sites ADD COLUMN item_lists_digest text NOT NULL DEFAULT ''",
};

// The steps from each version to the next; step i leads from version i to i + 1.
const QList<QByteArrayList> migrations = {versionOne, versionTwo, versionThree, versionFour};

int currentVersion(ChainDatabase &database)
{
    const ChainResult result = database.exec("SELECT max(version) FROM schema_version");
    return result.isNull(0, 0) ? 0 : result.value(0, 0).toInt();
}

ChainError versionError(int version, const QString &remedy)
{
    return ChainError(QStringLiteral("the chain database's tables are of version %1; this program knows version %2%3")
                          .arg(version)
                          .arg(ChainSchemaVersion)
                          .arg(remedy));
}

} // namespace

QByteArray DaySumsInsert(const QByteArray &where)
{
    return QByteArray("INSERT INTO day_sales SELECT site_id, day, item, sum(cents), sum(units) FROM sales WHERE day IS NOT NULL AND ") +
        CountingRow + " AND " + where + " GROUP BY site_id, day, item";
}

void MigrateChainSchema(ChainDatabase &database)
{
    ChainTransaction transaction(database);
    database.exec("SELECT pg_advisory_xact_lock($1, $2)", {lockClass, QByteArray::number(schemaLock)});
    database.exec("CREATE TABLE IF NOT EXISTS schema_version (version integer PRIMARY KEY, applied_at timestamptz NOT NULL DEFAULT now())");
    const int version = currentVersion(database);
    if (version > ChainSchemaVersion)
        throw versionError(version, QString());
    for (int step = version; step < ChainSchemaVersion; ++step) {
        for (const QByteArray &statement : migrations.at(step))
            database.exec(statement);
        database.exec("INSERT INTO schema_version (version) VALUES ($1)", {QByteArray::number(step + 1)});
    }
    transaction.commit();
}

void CheckChainSchema(ChainDatabase &database)
{
    if (const int version = currentVersion(database); version != ChainSchemaVersion)
        throw versionError(version, version < ChainSchemaVersion ? QStringLiteral(" (a sync brings them to it)") : QString());
}

void EnsureSitePartition(ChainDatabase &database, int siteId)
{
    const QByteArray id = QByteArray::number(siteId);
    for (const QByteArray table : {"sales", "monthly_sales"})
        database.exec("CREATE TABLE IF NOT EXISTS " + table + "_site_" + id + " PARTITION OF " + table + " FOR VALUES IN (" + id + ')');
}

QByteArray ChainSiteId(ChainDatabase &database, const QString &site)
{
    const ChainResult found = database.exec("SELECT site_id FROM sites WHERE name = $1 AND synced_at IS NOT NULL", {site.toUtf8()});
    if (found.rowCount() == 0)
        throw ChainError(QStringLiteral("the chain database has no site '%1'").arg(site));
    return found.value(0, 0);
}

void LockSite(ChainDatabase &database, int siteId)
{
    database.exec("SELECT pg_advisory_xact_lock($1, $2)", {lockClass, QByteArray::number(siteId + 1)});
}

} // namespace qlon

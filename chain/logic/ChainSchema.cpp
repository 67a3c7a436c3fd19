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

// The steps from each version to the next; step i leads from version i to i + 1.
const QList<QByteArrayList> migrations = {versionOne, versionTwo, versionThree};

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
    database.exec("CREATE TABLE IF NOT EXISTS sales_site_" + id + " PARTITION OF sales FOR VALUES IN (" + id + ')');
}

void LockSite(ChainDatabase &database, int siteId)
{
    database.exec("SELECT pg_advisory_xact_lock($1, $2)", {lockClass, QByteArray::number(siteId + 1)});
}

} // namespace qlon

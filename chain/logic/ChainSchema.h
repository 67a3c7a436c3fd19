#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

class ChainDatabase;

// The version of the chain database's tables that this program writes and reads.
inline constexpr int ChainSchemaVersion = 4;

// The rows that count on every day of a span whatever its hours: a named item, a readable time, and
// a time, price and quantity of their own. Their sums by day and item are kept in day_sales.
inline constexpr char CountingRow[] =
    "item <> '' AND sold_at IS NOT NULL AND time_from IS NULL AND price_from IS NULL AND quantity_from IS NULL";
// The rows holding a value that a null took from the item's row before, which count only as the
// span places that row; indexed by site and day.
inline constexpr char CarriedRow[] = "(time_from IS NOT NULL OR price_from IS NOT NULL OR quantity_from IS NOT NULL)";

// The statement that writes into day_sales the sums of the sales rows that `where` selects.
QByteArray DaySumsInsert(const QByteArray &where);

// Creates the tables on first use and brings an older version up to this one, each step in its
// own transaction, one program at a time. A database of a newer version than this program knows
// raises ChainError.
void MigrateChainSchema(ChainDatabase &database);

// Raises ChainError unless the tables are of this program's version: a report reads no other.
void CheckChainSchema(ChainDatabase &database);

// Creates the site's partitions of the sales and of the monthly lines where it has none; inside the
// caller's transaction.
void EnsureSitePartition(ChainDatabase &database, int siteId);

// The id of the site of the name, once a sync of it has ended; ChainError when the database has no
// such site.
QByteArray ChainSiteId(ChainDatabase &database, const QString &site);

// Takes the transaction-long lock of one site's rows: a second writer of the same site waits.
void LockSite(ChainDatabase &database, int siteId);

} // namespace qlon

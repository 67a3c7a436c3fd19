#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

class ChainDatabase;

// The version of the chain database's tables that this program writes and reads.
inline constexpr int ChainSchemaVersion = 3;

// Creates the tables on first use and brings an older version up to this one, each step in its
// own transaction, one program at a time. A database of a newer version than this program knows
// raises ChainError.
void MigrateChainSchema(ChainDatabase &database);

// Raises ChainError unless the tables are of this program's version: a report reads no other.
void CheckChainSchema(ChainDatabase &database);

// Creates the site's partitions of the sales and of the monthly lines where it has none; inside the
// caller's transaction.
void EnsureSitePartition(ChainDatabase &database, int siteId);

// The id of the site of the name; ChainError when the database has no such site.
QByteArray ChainSiteId(ChainDatabase &database, const QString &site);

// Takes the transaction-long lock of one site's rows: a second writer of the same site waits.
void LockSite(ChainDatabase &database, int siteId);

} // namespace qlon

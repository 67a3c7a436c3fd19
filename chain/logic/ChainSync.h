#pragma once

#include "chain/logic/ChainDatabase.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <functional>
#include <memory>

namespace qlon {

struct SiteSnapshot;

// What a sync changed.
struct SyncOutcome
{
    int daysReplaced = 0; // a day whose rows changed, came or went
    qint64 rowsWritten = 0;
    int monthDaysReplaced = 0; // a monthly file's day whose lines changed, came or went
    qint64 monthRowsWritten = 0;
    bool listsWritten = false; // the catalogue, the departments or the Items Sold lists
};

// A site's sync: it brings the site's rows in the chain database to a snapshot of the site. Every
// day of the sales, and every day of a monthly file, whose digest differs is replaced whole, the
// lists when they changed, all in one transaction under the site's lock, so that a second sync of
// the site waits and then finds nothing to do, and a sync cut short leaves the state before it.
// The tables must be there.
class SiteSync
{
public:
    // Registers the site, begins the transaction and takes the lock.
    SiteSync(ChainDatabase &database, const QString &name);
    ~SiteSync();
    SiteSync(const SiteSync &) = delete;
    SiteSync &operator=(const SiteSync &) = delete;

    // The sales rows of the snapshot read so far. A site that had none in the chain has every day
    // written anew: its rows are sent as they are read, so that the server writes them while the
    // site is still being read.
    void salesRead(const SiteSnapshot &snapshot);
    // Writes what changed and commits; `progress` hears of the rows written.
    SyncOutcome finish(const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress);

private:
    void endStream(const SiteSnapshot &snapshot);

    ChainDatabase &m_database;
    QByteArray m_site;
    ChainTransaction m_transaction;
    bool m_streams = false; // the site had no sales days in the chain
    std::unique_ptr<ChainCopy> m_copy; // the new days' rows on their way
    QHash<QByteArray, qsizetype> m_sent; // of each day's lines, the bytes sent
};

// The sync of a snapshot read whole.
SyncOutcome SyncSite(ChainDatabase &database, const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress);

} // namespace qlon

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace qlon {

class ChainDatabase;
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

// Brings the site's rows in the chain database to the snapshot: every day of the sales, and every
// day of a monthly file, whose digest differs is replaced whole, the catalogue and departments when they changed, all in one transaction
// under the site's lock, so that a second sync of the site waits and then finds nothing to do,
// and a sync cut short leaves the state before it. The tables must be there.
// `progress` hears of the rows written.
SyncOutcome SyncSite(ChainDatabase &database, const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress);

} // namespace qlon

#include "chain/SyncCommand.h"

#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "chain/logic/ChainSync.h"
#include "chain/logic/SiteSnapshot.h"
#include "core/FileTable.h"
#include "core/RuntimeError.h"
#include "store/SalesStore.h"

#include <unistd.h>

namespace qlon {

namespace {

// The counts on one line of the terminal, rewritten in place; nothing under cron.
class SyncProgress
{
public:
    explicit SyncProgress(QTextStream &err)
        : m_err(err)
        , m_shown(isatty(STDERR_FILENO) != 0)
    {
    }

    void show(const QString &text)
    {
        if (m_shown)
            m_err << "\rqlon: sync: " << text << "\x1b[K" << Qt::flush;
    }
    void end()
    {
        if (m_shown)
            m_err << Qt::endl;
    }

private:
    QTextStream &m_err;
    bool m_shown;
};

int siteUnreadable(const RuntimeError &error, SyncProgress &progress, QTextStream &err)
{
    CloseAll();
    progress.end();
    err << "qlon: sync: the site can't be read: " << error.message().simplified();
    if (!error.detail().isEmpty())
        err << " (" << error.detail() << ')';
    err << Qt::endl;
    return 1;
}

} // namespace

int SyncToChain(const QByteArray &url, const QString &site, QTextStream &err)
{
    SyncProgress progress(err);
    SiteSnapshot snapshot;
    try {
        // The site's lists and monthly files are read, and its sales opened, before the database is
        // asked: a site that can't be opened leaves the chain as it was.
        const std::unique_ptr<SalesStore> store = OpenSite(site, snapshot);
        ChainDatabase database(url);
        MigrateChainSchema(database);
        SiteSync sync(database, snapshot.name);
        ReadSales(*store, snapshot, [&](qint64 rows) {
            sync.salesRead(snapshot);
            progress.show(QStringLiteral("%1 rows read").arg(rows));
        });
        const SyncOutcome outcome = sync.finish(
            snapshot, [&](qint64 rows) { progress.show(QStringLiteral("%1 rows read, %2 written").arg(snapshot.rowCount).arg(rows)); });
        progress.show(QStringLiteral("%1: %2 rows read, %3 written, %4 days replaced; %5 monthly lines read, %6 written, %7 days replaced")
                          .arg(snapshot.name)
                          .arg(snapshot.rowCount)
                          .arg(outcome.rowsWritten)
                          .arg(outcome.daysReplaced)
                          .arg(snapshot.monthRowCount)
                          .arg(outcome.monthRowsWritten)
                          .arg(outcome.monthDaysReplaced));
        progress.end();
    } catch (const RuntimeError &error) {
        return siteUnreadable(error, progress, err);
    } catch (const ChainError &error) {
        progress.end();
        err << "qlon: sync: " << error.message() << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace qlon

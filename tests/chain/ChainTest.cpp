// The chain database against a real PostgreSQL server of the test's own: the sync of generated
// sites (one of them Jet), its idempotence, a changed day, a sync killed in the middle, faults,
// and the report over the chain against each site's own `qlon report`.
#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainMainReport.h"
#include "chain/logic/ChainSchema.h"
#include "chain/logic/ChainSync.h"
#include "chain/logic/SiteSnapshot.h"
#include "demo/DemoSite.h"
#include "platform/FileLock.h"
#include "tests/chain/ChainServer.h"
#include "tests/support/TempSite.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <csignal>

namespace qlon {
namespace {

const QDate salesToday(2026, 11, 24);
constexpr int processMilliseconds = 180000;

struct ProgramRun
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

ProgramRun runQlon(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(QLON_PROGRAM), arguments);
    ProgramRun run;
    if (!process.waitForFinished(processMilliseconds))
        process.kill();
    run.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

QString databaseOf(const QString &driveFolder)
{
    return driveFolder + QStringLiteral("/Quillon/data/Quillon.mdb");
}

// Runs one statement on a site's SQLite sales database.
void changeSales(const QString &driveFolder, const char *statement)
{
    sqlite3 *database = nullptr;
    ASSERT_EQ(sqlite3_open(databaseOf(driveFolder).toUtf8().constData(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    sqlite3_close(database);
}

// Appends lines to the site's monthly file of the month ("MMYYYY").
void appendToMonth(const QString &driveFolder, const char *month, const QByteArray &lines)
{
    QFile file(driveFolder + QStringLiteral("/Quillon/data/ItemsSold%1.DAT").arg(QLatin1String(month)));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(lines);
}

QByteArray valueOf(ChainDatabase &database, const QByteArray &query)
{
    return database.exec(query).value(0, 0);
}

// What the database holds of the sales: the rows and their sum, the days and their digests.
QByteArray chainState(ChainDatabase &database)
{
    return valueOf(database, "SELECT count(*) || ' ' || coalesce(sum(cents), 0) FROM sales") + ' ' +
        valueOf(database, "SELECT string_agg(site_id || day_key || digest, ',' ORDER BY site_id, day_key) FROM site_days");
}

// Polls the server until the query counts 1, for a minute at the most.
bool becomesOne(ChainDatabase &database, const QByteArray &query)
{
    for (int poll = 0; poll < 600; ++poll) {
        if (valueOf(database, query) == "1")
            return true;
        QThread::msleep(100);
    }
    return false;
}

class ChainTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { server = new test::ChainServer; }
    static void TearDownTestSuite() { delete server; }
    void SetUp() override { ASSERT_TRUE(server->started()) << server->log().toStdString(); }

    static test::ChainServer *server;
};

test::ChainServer *ChainTest::server = nullptr;

TEST_F(ChainTest, ASecondSyncWritesNothingAndAChangedDayIsReplacedWhole)
{
    ChainDatabase database(server->createDatabase("incremental"));
    MigrateChainSchema(database);
    test::TempSite site;
    WriteDemoSite(site.driveFolder(), salesToday);
    const auto quiet = [](qint64) {};

    const SiteSnapshot first = ReadSite(QStringLiteral("north"), quiet);
    ASSERT_GT(first.rowCount, 1000);
    ASSERT_GT(first.monthRowCount, 1000);
    EXPECT_TRUE(first.days.contains(QByteArray())) << "the demo site has rows with a broken date";
    // A first sync whose reading stops half-way: the rows on their way are discarded, and the site
    // is not in the chain.
    {
        SiteSync stopped(database, QStringLiteral("north"));
        stopped.salesRead(first);
    }
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sales"), "0");
    EXPECT_TRUE(ChainSites(database).isEmpty());
    const SyncOutcome written = SyncSite(database, first, quiet);
    EXPECT_EQ(written.rowsWritten, first.rowCount);
    EXPECT_EQ(written.monthRowsWritten, first.monthRowCount);
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sales").toLongLong(), first.rowCount);
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM monthly_sales").toLongLong(), first.monthRowCount);

    const SyncOutcome again = SyncSite(database, ReadSite(QStringLiteral("north"), quiet), quiet);
    EXPECT_EQ(again.rowsWritten, 0);
    EXPECT_EQ(again.daysReplaced, 0);
    EXPECT_EQ(again.monthRowsWritten, 0);
    EXPECT_EQ(again.monthDaysReplaced, 0);
    EXPECT_FALSE(again.listsWritten);

    // A line for an earlier day at the end of the month's file: that day of the file alone, whole.
    const QByteArray day = "2026-11-01 2026-11-20";
    appendToMonth(site.driveFolder(), "112026", "\"11/20/26\",\"1\",\"Corona\",\"5.75\",\"L\",\"9:00 PM\",\"Dine In\",\"1002\"\r\n");
    const SiteSnapshot appended = ReadSite(QStringLiteral("north"), quiet);
    const SyncOutcome monthDay = SyncSite(database, appended, quiet);
    EXPECT_EQ(monthDay.monthDaysReplaced, 1);
    EXPECT_EQ(monthDay.monthRowsWritten, first.monthDays.value(day).count + 1);
    EXPECT_EQ(monthDay.monthRowsWritten, appended.monthDays.value(day).count);
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM monthly_sales").toLongLong(), first.monthRowCount + 1);

    const QByteArray before = valueOf(database, "SELECT sum(cents) FROM sales WHERE day = '2026-11-20'");
    changeSales(site.driveFolder(), "UPDATE ItemsSold SET UnitPrice = UnitPrice + 1 WHERE OrderDate LIKE '2026-11-20%'");
    const SiteSnapshot changed = ReadSite(QStringLiteral("north"), quiet);
    const SyncOutcome replaced = SyncSite(database, changed, quiet);
    EXPECT_EQ(replaced.daysReplaced, 1);
    EXPECT_EQ(replaced.rowsWritten, changed.days.value("2026-11-20").count);
    EXPECT_EQ(valueOf(database, "SELECT sum(cents) FROM sales WHERE day = '2026-11-20'").toLongLong(),
        before.toLongLong() + 100 * replaced.rowsWritten);
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sales").toLongLong(), first.rowCount);
}

TEST_F(ChainTest, ASyncKilledHalfWayLeavesTheStateBefore)
{
    const QByteArray url = server->createDatabase("killed");
    test::TempSite site;
    WriteDemoSite(site.driveFolder(), salesToday);
    const QStringList sync = {QStringLiteral("--drive"), QStringLiteral("C=") + site.driveFolder(), QStringLiteral("sync"),
        QStringLiteral("--to"), QString::fromUtf8(url)};
    const ProgramRun first = runQlon(sync);
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    ChainDatabase database(url);
    const QByteArray before = chainState(database);

    // The digests are written last: holding them makes the sync wait with its rows written.
    changeSales(site.driveFolder(), "UPDATE ItemsSold SET UnitPrice = UnitPrice + 1");
    ChainDatabase holder(url);
    holder.exec("BEGIN");
    holder.exec("LOCK TABLE site_days IN SHARE MODE");
    QProcess killed;
    killed.start(QStringLiteral(QLON_PROGRAM), sync);
    bool waiting = false;
    for (int poll = 0; poll < 600 && !waiting; ++poll) {
        QThread::msleep(100);
        waiting = valueOf(database,
                      "SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock'"
                      " AND query LIKE 'DELETE FROM site_days%'") == "1";
    }
    ASSERT_TRUE(waiting) << killed.readAllStandardError().toStdString();
    ::kill(pid_t(killed.processId()), SIGKILL);
    killed.waitForFinished(processMilliseconds);
    holder.exec("ROLLBACK");
    for (int poll = 0; poll < 600 && valueOf(database, "SELECT count(*) FROM pg_stat_activity WHERE datname = 'killed'") != "2"; ++poll)
        QThread::msleep(100);
    EXPECT_EQ(chainState(database), before);

    const ProgramRun after = runQlon(sync);
    ASSERT_EQ(after.status, 0) << after.err.toStdString();
    EXPECT_NE(chainState(database), before);
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sales"), before.split(' ').first());
}

TEST_F(ChainTest, TwoSyncsOfASiteAtOnceWriteItsRowsOnce)
{
    const QByteArray url = server->createDatabase("twice");
    test::TempSite site;
    WriteDemoSite(site.driveFolder(), salesToday);
    const QStringList sync = {QStringLiteral("--drive"), QStringLiteral("C=") + site.driveFolder(), QStringLiteral("sync"),
        QStringLiteral("--to"), QString::fromUtf8(url)};
    ChainDatabase database(url);
    MigrateChainSchema(database);
    // The first sync waits at the digests with its rows written; the second comes meanwhile.
    ChainDatabase holder(url);
    holder.exec("BEGIN");
    holder.exec("LOCK TABLE site_days IN SHARE MODE");
    QProcess first;
    first.start(QStringLiteral(QLON_PROGRAM), sync);
    ASSERT_TRUE(becomesOne(
        database, "SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' AND query LIKE 'DELETE FROM site_days%'"));
    QProcess second;
    second.start(QStringLiteral(QLON_PROGRAM), sync);
    const bool secondWaits = becomesOne(database, "SELECT count(*) FROM pg_stat_activity WHERE wait_event = 'advisory'");
    holder.exec("ROLLBACK");
    ASSERT_TRUE(first.waitForFinished(processMilliseconds) && second.waitForFinished(processMilliseconds));
    EXPECT_TRUE(secondWaits);
    EXPECT_EQ(first.exitCode(), 0);
    EXPECT_EQ(second.exitCode(), 0) << second.readAllStandardError().toStdString();
    const SiteSnapshot snapshot = ReadSite(QString(), [](qint64) {});
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sales").toLongLong(), snapshot.rowCount);
}

TEST_F(ChainTest, FaultsEndWithStatusOneAndTheReasonAndLeaveOtherSitesAlone)
{
    EXPECT_EQ(runQlon({QStringLiteral("sync")}).status, 2) << "a sync needs --to";
    EXPECT_EQ(
        runQlon({QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--chain"), QStringLiteral("host=/nonexistent")}).status,
        2)
        << "a report over the chain needs its dates";
    EXPECT_EQ(runQlon({QStringLiteral("report"), QStringLiteral("server"), QStringLiteral("--server"), QStringLiteral("1002"),
                          QStringLiteral("--chain"), QStringLiteral("host=/nonexistent"), QStringLiteral("--from"),
                          QStringLiteral("2026-11-01"), QStringLiteral("--to"), QStringLiteral("2026-11-02")})
                  .status,
        2)
        << "the server report stays with its site";
    test::TempSite site;
    WriteDemoSite(site.driveFolder(), salesToday);
    const QStringList drive = {QStringLiteral("--drive"), QStringLiteral("C=") + site.driveFolder(), QStringLiteral("sync")};
    const ProgramRun refused = runQlon(drive + QStringList{QStringLiteral("--to"), QStringLiteral("host=/nonexistent dbname=none")});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.startsWith("qlon: sync: ") && refused.err.contains("/nonexistent")) << refused.err.toStdString();

    const QByteArray url = server->createDatabase("faults");
    const QStringList sync = drive + QStringList{QStringLiteral("--to"), QString::fromUtf8(url)};
    ASSERT_EQ(runQlon(sync).status, 0);
    ChainDatabase database(url);
    const QByteArray before = chainState(database);

    test::TempSite broken;
    WriteDemoSite(broken.driveFolder(), salesToday);
    QFile::remove(databaseOf(broken.driveFolder()));
    const ProgramRun unreadable = runQlon({QStringLiteral("--drive"), QStringLiteral("C=") + broken.driveFolder(), QStringLiteral("sync"),
        QStringLiteral("--to"), QString::fromUtf8(url), QStringLiteral("--site"), QStringLiteral("broken")});
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_TRUE(unreadable.err.contains("Quillon.mdb")) << unreadable.err.toStdString();
    // A month's file that a station holds past the wait.
    QFile held(broken.driveFolder() + QStringLiteral("/Quillon/data/ItemsSold102026.DAT"));
    ASSERT_TRUE(held.open(QIODevice::ReadWrite) && FileLock::lockWhole(held));
    const ProgramRun locked = runQlon({QStringLiteral("--drive"), QStringLiteral("C=") + broken.driveFolder(), QStringLiteral("sync"),
        QStringLiteral("--to"), QString::fromUtf8(url), QStringLiteral("--site"), QStringLiteral("broken")});
    EXPECT_EQ(locked.status, 1);
    EXPECT_TRUE(locked.err.contains("ItemsSold102026.DAT")) << locked.err.toStdString();
    EXPECT_EQ(valueOf(database, "SELECT count(*) FROM sites"), "1");

    database.exec("INSERT INTO schema_version (version) VALUES (99)");
    const ProgramRun newer = runQlon(sync);
    EXPECT_EQ(newer.status, 1);
    EXPECT_TRUE(newer.err.contains("version 99")) << newer.err.toStdString();
    const ProgramRun report = runQlon({QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--chain"), QString::fromUtf8(url),
        QStringLiteral("--from"), QStringLiteral("2026-11-01"), QStringLiteral("--to"), QStringLiteral("2026-11-02")});
    EXPECT_EQ(report.status, 1);
    EXPECT_TRUE(report.err.contains("version 99")) << report.err.toStdString();
    EXPECT_EQ(chainState(database), before);
}

// ---- The report over the chain

struct Site
{
    QString name;
    QDate today;
    bool jet;
    test::TempSite folder;
};

// The values a site's walk takes from the item's row before: the item's first sale of each day has
// no price (and every other one no quantity), so a span's first day takes them from a day outside
// it; a third of the receipts are null. Some dates hold a time of day, which the site's select
// leaves out on the to date, and some midnight, which it keeps.
constexpr const char *carriedValues[] = {
    "UPDATE ItemsSold SET UnitPrice = NULL, Quantity = CASE WHEN OrderID % 2 = 0 THEN NULL ELSE Quantity END"
    " WHERE rowid IN (SELECT min(rowid) FROM ItemsSold GROUP BY substr(OrderDate, 1, 10), Item)",
    "UPDATE ItemsSold SET ReceiptID = NULL WHERE OrderID % 3 = 0",
    "UPDATE ItemsSold SET OrderDate = OrderDate || ' ' || Time WHERE OrderID % 5 = 1 AND length(Time) = 8 AND length(OrderDate) = 10",
    "UPDATE ItemsSold SET OrderDate = OrderDate || ' 00:00:00' WHERE OrderID % 5 = 2 AND length(OrderDate) = 10",
};

// What the Items Sold scan reads in its own ways: a gift card at any hour, items the catalogue lacks
// (one a modifier), a date and a time that can't be read, a price of three decimals, and a record a
// field short, which the reader rejects with the record after it.
constexpr const char *monthlyQuirks = "\"11/12/26\",\"1\",\"Gift Card\",\"25.00\",\"R\",\"3:00 AM\",\"\",\"\"\n"
                                      "\"11/12/26\",\"2\",\"Mystery Dish\",\"9.50\",\"F\",\"7:00 PM\",\"\",\"\"\n"
                                      "\"11/13/26\",\"1\",\"Extra Mystery\",\"1.00\",\"1\",\"7:00 PM\",\"\",\"\"\n"
                                      "\"11/1x/26\",\"1\",\"  Corona \",\"5.75\",\"L\",\"7:00 PM\",\"\",\"\"\n"
                                      "\"11/13/26\",\"3\",\"Corona\",\"5.125\",\"L\",\"late\",\"\",\"\"\n"
                                      "\"bad\",\"1\",\"Corona\",\"5.75\",\"L\",\"7:00 PM\",\"\"\n"
                                      "\"11/13/26\",\"1\",\"Corona\",\"5.75\",\"L\",\"7:00 PM\",\"\",\"\"\n";

void writeSite(Site &site)
{
    WriteDemoSite(site.folder.driveFolder(), site.today);
    appendToMonth(site.folder.driveFolder(), "112026", monthlyQuirks);
    // Only a span whose walk starts in October reads it.
    appendToMonth(site.folder.driveFolder(), "102026", "\"10/3x/26\",\"2\",\"Corona\",\"5.75\",\"L\",\"7:00 PM\",\"\",\"\"\n");
    for (const char *statement : carriedValues)
        changeSales(site.folder.driveFolder(), statement);
    if (!site.jet)
        return;
    // libmdb under the sanitizers reads slowly: the Jet site keeps the weeks the reports ask for.
    changeSales(site.folder.driveFolder(), "DELETE FROM ItemsSold WHERE OrderDate < '2026-11-05'");
    const QString sqlite = site.folder.driveFolder() + QStringLiteral("/sales.sqlite");
    ASSERT_TRUE(QFile::rename(databaseOf(site.folder.driveFolder()), sqlite));
    QProcess convert;
    convert.setStandardOutputFile(QProcess::nullDevice());
    convert.start(
        QStringLiteral("python3"), {QStringLiteral(QLON_JET_TOOLS "/sqlite-to-jet.py"), sqlite, databaseOf(site.folder.driveFolder())});
    ASSERT_TRUE(convert.waitForFinished(processMilliseconds));
    ASSERT_EQ(convert.exitCode(), 0);
}

QJsonObject jsonOf(const ProgramRun &run)
{
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    return QJsonDocument::fromJson(run.out).object();
}

// The figures of a report: all it says but the site, its message boxes and the main report's sales
// by day and hour, which the chain doesn't give.
QJsonObject figuresOf(QJsonObject report)
{
    for (const char *apart : {"site", "messages", "byDay", "byHour"})
        report.remove(QLatin1String(apart));
    return report;
}

// Each item's units and volume summed over the sites' reports.
QMap<QString, std::pair<double, double>> summedRows(const QJsonArray &reports)
{
    QMap<QString, std::pair<double, double>> sums;
    for (const QJsonValue &report : reports) {
        for (const QJsonValue &row : report[QStringLiteral("rows")].toArray()) {
            auto &sum = sums[row[QStringLiteral("name")].toString()];
            sum.first += row[QStringLiteral("units")].toDouble();
            sum.second += row[QStringLiteral("volume")].toDouble();
        }
    }
    return sums;
}

TEST_F(ChainTest, TheChainReportGivesEachSiteItsOwnFiguresAndTheirSum)
{
    const QByteArray url = server->createDatabase("report");
    Site sites[] = {{QStringLiteral("north"), salesToday, false, {}}, {QStringLiteral("harbour"), QDate(2026, 11, 20), true, {}},
        {QStringLiteral("station"), QDate(2026, 11, 27), false, {}}};
    const QString main = QStringLiteral("main");
    const QString itemsSold = QStringLiteral("items-sold");
    const QList<QStringList> requests = {
        {main, QStringLiteral("--from"), QStringLiteral("2026-11-09"), QStringLiteral("--to"), QStringLiteral("2026-11-15")},
        {main, QStringLiteral("--from"), QStringLiteral("2026-11-12"), QStringLiteral("--to"), QStringLiteral("2026-11-13"),
            QStringLiteral("--start-time"), QStringLiteral("6:00 pm"), QStringLiteral("--end-time"), QStringLiteral("2:00 pm"),
            QStringLiteral("--category"), QStringLiteral("food")},
        {main, QStringLiteral("--from"), QStringLiteral("2026-11-14"), QStringLiteral("--to"), QStringLiteral("2026-11-14"),
            QStringLiteral("--start-time"), QStringLiteral("11:00 am"), QStringLiteral("--end-time"), QStringLiteral("3:00 pm"),
            QStringLiteral("--category"), QStringLiteral("bar")},
        {main, QStringLiteral("--from"), QStringLiteral("2026-10-01"), QStringLiteral("--to"), QStringLiteral("2026-11-30"),
            QStringLiteral("--category"), QStringLiteral("retail")},
        {itemsSold, QStringLiteral("--from"), QStringLiteral("2026-11-09"), QStringLiteral("--to"), QStringLiteral("2026-11-15")},
        {itemsSold, QStringLiteral("--from"), QStringLiteral("2026-11-12"), QStringLiteral("--to"), QStringLiteral("2026-11-13"),
            QStringLiteral("--start-time"), QStringLiteral("6:00 pm"), QStringLiteral("--end-time"), QStringLiteral("2:00 pm"),
            QStringLiteral("--category"), QStringLiteral("food")},
        {itemsSold, QStringLiteral("--from"), QStringLiteral("2026-10-20"), QStringLiteral("--to"), QStringLiteral("2026-11-13"),
            QStringLiteral("--end-time"), QStringLiteral("6:00 pm"), QStringLiteral("--category"), QStringLiteral("bar"),
            QStringLiteral("--department"), QStringLiteral("beer")},
    };
    QList<QList<QJsonObject>> own(requests.size());
    for (Site &site : sites) {
        writeSite(site);
        const QStringList drive = {QStringLiteral("--drive"), QStringLiteral("C=") + site.folder.driveFolder()};
        for (qsizetype request = 0; request < requests.size(); ++request) {
            own[request].append(jsonOf(runQlon(
                drive + QStringList{QStringLiteral("report"), QStringLiteral("--format"), QStringLiteral("json")} + requests[request])));
        }
        const ProgramRun sync = runQlon(drive +
            QStringList{QStringLiteral("sync"), QStringLiteral("--to"), QString::fromUtf8(url), QStringLiteral("--site"), site.name});
        ASSERT_EQ(sync.status, 0) << sync.err.toStdString();
    }
    for (qsizetype request = 0; request < requests.size(); ++request) {
        const QJsonObject chain = jsonOf(runQlon(QStringList{QStringLiteral("report"), QStringLiteral("--chain"), QString::fromUtf8(url),
                                                     QStringLiteral("--format"), QStringLiteral("json")} +
            requests[request]));
        const QJsonArray reports = chain[QStringLiteral("sites")].toArray();
        ASSERT_EQ(reports.size(), 3);
        for (int site = 0; site < 3; ++site) {
            EXPECT_EQ(reports[site][QStringLiteral("site")].toString(), sites[site].name);
            EXPECT_EQ(figuresOf(reports[site].toObject()), figuresOf(own[request][site]))
                << sites[site].name.toStdString() << ' ' << requests[request].join(QLatin1Char(' ')).toStdString();
        }
        double notReported = 0;
        for (const QJsonValue &report : reports)
            notReported += report[QStringLiteral("notReported")].toDouble();
        EXPECT_EQ(chain[QStringLiteral("combined")][QStringLiteral("notReported")].toDouble(), notReported);
        const QMap<QString, std::pair<double, double>> sums = summedRows(reports);
        const QMap<QString, std::pair<double, double>> combined = summedRows({chain[QStringLiteral("combined")]});
        ASSERT_EQ(combined.keys(), sums.keys());
        for (auto item = sums.cbegin(); item != sums.cend(); ++item) {
            EXPECT_EQ(combined[item.key()].first, item->first) << item.key().toStdString();
            EXPECT_NEAR(combined[item.key()].second, item->second, 0.001) << item.key().toStdString();
        }
    }
}

} // namespace
} // namespace qlon

// The chain database against its yardsticks, on a PostgreSQL server of the bench's own, by wall
// time (the work is the server's as much as the program's): "ratio" is the program's time over
// the yardstick's in the same run.
//  - BM_ChainSync: `qlon sync` of a generated site into an empty database, against `psql \copy` of
//    the same rows (its sales and its monthly files' lines) into tables of the same form.
//  - BM_ChainReport: `qlon report main --chain` over 20 sites of the site's rows each, against the
//    bare GROUP BY of the same span in psql. "day_by_index" is 1 when EXPLAIN of a site's day reads
//    that site's partition alone, through the index of days.
//  - BM_ChainItemsSold: `qlon report items-sold --chain` over 20 sites of a year of monthly files'
//    lines each, a month's report, against the bare GROUP BY of the same month in psql.
#include "bench/BenchSites.h"
#include "bench/ChildRun.h"
#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainMainReport.h"
#include "tests/chain/ChainServer.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace qlon::bench {
namespace {

constexpr int chainSites = 20;
const QString psql = QStringLiteral(QLON_POSTGRES_BIN "/psql");
const QString weekFrom = SalesToday.addDays(-7).toString(Qt::ISODate);
const QString weekTo = SalesToday.addDays(-1).toString(Qt::ISODate);

test::ChainServer &server()
{
    static test::ChainServer chainServer;
    if (!chainServer.started())
        throw std::runtime_error(chainServer.log().toStdString());
    return chainServer;
}

QByteArray freshDatabase()
{
    static int count = 0;
    return server().createDatabase("bench" + QByteArray::number(++count));
}

double psqlSeconds(const QByteArray &url, const QString &command)
{
    return RunChild(psql, {QString::fromUtf8(url), QStringLiteral("-q"), QStringLiteral("-c"), command}).wallSeconds;
}

QStringList syncArguments(const QString &site, const QByteArray &url, const QString &name)
{
    return {QStringLiteral("--drive"), QStringLiteral("C=") + site, QStringLiteral("sync"), QStringLiteral("--to"), QString::fromUtf8(url),
        QStringLiteral("--site"), name};
}

void measureSync(benchmark::State &state)
{
    const QString site = SalesSite(int(state.range(0)));
    QTemporaryDir folder;
    const QString rows = folder.filePath(QStringLiteral("rows.copy"));
    double program = 0;
    double yardstick = 0;
    for (auto _ : state) {
        const QByteArray url = freshDatabase();
        const double seconds = RunChild(QStringLiteral(QLON_PROGRAM), syncArguments(site, url, QStringLiteral("site"))).wallSeconds;
        for (const QString &table : {QStringLiteral("sales"), QStringLiteral("monthly_sales")}) {
            psqlSeconds(url, QStringLiteral("\\copy (SELECT * FROM %1) TO '%2'").arg(table, rows));
            psqlSeconds(url, QStringLiteral("CREATE TABLE yardstick_%1 (LIKE %1 INCLUDING ALL)").arg(table));
            yardstick += psqlSeconds(url, QStringLiteral("\\copy yardstick_%1 FROM '%2'").arg(table, rows));
        }
        program += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = program / yardstick;
    state.counters["yardstick_ms"] = yardstick / double(state.iterations()) * 1000;
}

// Copies the table's rows of site 1 to the site.
void copyRows(ChainDatabase &database, const QByteArray &table, const QByteArray &columns, const QByteArray &id)
{
    database.exec(
        "INSERT INTO " + table + " (site_id, " + columns + ") SELECT " + id + ", " + columns + " FROM " + table + " WHERE site_id = 1");
}

// The chain of 20 sites: one synced, the others copies of its rows under their own names.
QByteArray twentySites(const QString &site)
{
    const QByteArray url = freshDatabase();
    RunChild(QStringLiteral(QLON_PROGRAM), syncArguments(site, url, QStringLiteral("site1")));
    ChainDatabase database(url);
    for (int site = 2; site <= chainSites; ++site) {
        const QByteArray id = QByteArray::number(site);
        database.exec("INSERT INTO sites (name, catalogue_digest, departments_digest, item_lists_digest, synced_at) SELECT 'site" + id +
            "', catalogue_digest, departments_digest, item_lists_digest, synced_at FROM sites WHERE site_id = 1");
        for (const QByteArray table : {"sales", "monthly_sales"})
            database.exec("CREATE TABLE " + table + "_site_" + id + " PARTITION OF " + table + " FOR VALUES IN (" + id + ')');
        copyRows(database, "sales",
            "seq, day, order_at, sold_at, time_from, cents, price_from, units, quantity_from, receipt, receipt_from, item, item_type,"
            " item_text, order_date_text, time_text, price_text, quantity_text",
            id);
        copyRows(database, "monthly_sales",
            "month, seq, day, sold_minute, units, amount, gift_amount, missing_modes, item, date_text, quantity_text, item_text,"
            " price_text, type_text, time_text",
            id);
        copyRows(database, "day_sales", "day, item, cents, units", id);
        copyRows(database, "catalogue", "position, text, tag, type", id);
        copyRows(database, "departments", "position, name", id);
        copyRows(database, "item_lists", "list, position, text", id);
    }
    database.exec("ANALYZE");
    // A report lists the sites a sync has ended for: all twenty, or the measure is of fewer.
    if (ChainSites(database).size() != chainSites)
        throw std::runtime_error("the chain's copied sites are not listed");
    return url;
}

bool dayReadsOnePartitionByIndex(ChainDatabase &database)
{
    const QByteArray day = SalesToday.addDays(-4).toString(Qt::ISODate).toLatin1();
    const ChainResult plan = database.exec(
        "EXPLAIN SELECT item, sum(cents) FROM sales WHERE site_id = 3 AND day BETWEEN '" + day + "' AND '" + day + "' GROUP BY item");
    QByteArray text;
    for (int row = 0; row < plan.rowCount(); ++row)
        text += plan.value(row, 0) + '\n';
    return text.contains("sales_site_3") && !text.contains("sales_site_1 ") && text.contains("Index");
}

// The report over the chain against the bare GROUP BY of its span.
void measureChainReport(benchmark::State &state, const QByteArray &url, const QStringList &report, const QString &bareQuery)
{
    double program = 0;
    double yardstick = 0;
    for (auto _ : state) {
        const double seconds = RunChild(QStringLiteral(QLON_PROGRAM),
            QStringList{QStringLiteral("report")} + report + QStringList{QStringLiteral("--chain"), QString::fromUtf8(url)})
                                   .wallSeconds;
        yardstick += psqlSeconds(url, bareQuery);
        program += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = program / yardstick;
    state.counters["yardstick_ms"] = yardstick / double(state.iterations()) * 1000;
}

void measureReport(benchmark::State &state)
{
    const QByteArray url = twentySites(SalesSite(int(state.range(0))));
    measureChainReport(state, url, {QStringLiteral("main"), QStringLiteral("--from"), weekFrom, QStringLiteral("--to"), weekTo},
        QStringLiteral("SELECT site_id, item, sum(cents), sum(units) FROM sales WHERE day BETWEEN '%1' AND '%2' GROUP BY site_id, item")
            .arg(weekFrom, weekTo));
    ChainDatabase database(url);
    state.counters["day_by_index"] = dayReadsOnePartitionByIndex(database) ? 1 : 0;
}

void measureItemsSold(benchmark::State &state)
{
    const QString from = QStringLiteral("2025-03-01");
    const QString to = QStringLiteral("2025-03-31");
    measureChainReport(state, twentySites(MonthlySalesSite(int(state.range(0)))),
        {QStringLiteral("items-sold"), QStringLiteral("--from"), from, QStringLiteral("--to"), to},
        QStringLiteral("SELECT site_id, item, sum(units), sum(amount) FROM monthly_sales WHERE day BETWEEN '%1' AND '%2'"
                       " GROUP BY site_id, item")
            .arg(from, to));
}

// A failing step ends the benchmark with its reason rather than the program, so that the server
// is stopped at the end all the same.
template<void (*measure)(benchmark::State &)>
void guarded(benchmark::State &state)
{
    try {
        measure(state);
    } catch (const std::exception &error) {
        state.SkipWithError(error.what());
    }
}

// QLON_CHAIN_BENCH_ROWS sets the rows of a site: a million for the full measure, fewer on a
// small machine.
int siteRows()
{
    const int rows = qEnvironmentVariableIntValue("QLON_CHAIN_BENCH_ROWS");
    return rows > 0 ? rows : 1000000;
}

} // namespace
} // namespace qlon::bench

int main(int argc, char **argv)
{
    using namespace qlon::bench;
    benchmark::RegisterBenchmark("BM_ChainSync", guarded<measureSync>)
        ->Arg(siteRows())
        ->Iterations(2)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_ChainReport", guarded<measureReport>)
        ->Arg(siteRows())
        ->Iterations(2)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_ChainItemsSold", guarded<measureItemsSold>)
        ->Arg(siteRows())
        ->Iterations(2)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

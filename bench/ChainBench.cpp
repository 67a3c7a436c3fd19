// The chain database against its yardsticks, on a PostgreSQL server of the bench's own, by wall
// time (the work is the server's as much as the program's): "ratio" is the program's time over
// the yardstick's in the same run.
//  - BM_ChainSync: `qlon sync` of a generated site into an empty database, against `psql \copy` of
//    the same rows into a table of the same form.
//  - BM_ChainReport: `qlon report main --chain` over 20 sites of the site's rows each, against the
//    bare GROUP BY of the same span in psql. "week_partitions" is 1 when EXPLAIN of a site's week
//    reads that site's partition alone, through the index of days.
#include "bench/BenchSites.h"
#include "bench/ChildRun.h"
#include "chain/logic/ChainDatabase.h"
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
        psqlSeconds(url, QStringLiteral("\\copy (SELECT * FROM sales) TO '%1'").arg(rows));
        psqlSeconds(url, QStringLiteral("CREATE TABLE yardstick (LIKE sales INCLUDING ALL)"));
        yardstick += psqlSeconds(url, QStringLiteral("\\copy yardstick FROM '%1'").arg(rows));
        program += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = program / yardstick;
    state.counters["yardstick_ms"] = yardstick / double(state.iterations()) * 1000;
}

// The chain of 20 sites: one synced, the others copies of its rows under their own names.
QByteArray twentySites(int rows)
{
    const QByteArray url = freshDatabase();
    RunChild(QStringLiteral(QLON_PROGRAM), syncArguments(SalesSite(rows), url, QStringLiteral("site1")));
    ChainDatabase database(url);
    for (int site = 2; site <= chainSites; ++site) {
        const QByteArray id = QByteArray::number(site);
        database.exec("INSERT INTO sites (name, catalogue_digest, departments_digest) SELECT 'site" + id +
            "', catalogue_digest, departments_digest FROM sites WHERE site_id = 1");
        database.exec("CREATE TABLE sales_site_" + id + " PARTITION OF sales FOR VALUES IN (" + id + ')');
        const QByteArray columns = "seq, day, order_at, sold_at, time_from, cents, price_from, units, quantity_from, receipt,"
                                   " receipt_from, item, item_type, item_text, order_date_text, time_text, price_text, quantity_text";
        database.exec("INSERT INTO sales (site_id, " + columns + ") SELECT " + id + ", " + columns + " FROM sales WHERE site_id = 1");
        database.exec("INSERT INTO catalogue SELECT " + id + ", position, text, tag, type FROM catalogue WHERE site_id = 1");
        database.exec("INSERT INTO departments SELECT " + id + ", position, name FROM departments WHERE site_id = 1");
    }
    database.exec("ANALYZE");
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

void measureReport(benchmark::State &state)
{
    const QByteArray url = twentySites(int(state.range(0)));
    ChainDatabase database(url);
    double program = 0;
    double yardstick = 0;
    for (auto _ : state) {
        const double seconds = RunChild(QStringLiteral(QLON_PROGRAM),
            {QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--chain"), QString::fromUtf8(url), QStringLiteral("--from"),
                weekFrom, QStringLiteral("--to"), weekTo})
                                   .wallSeconds;
        yardstick += psqlSeconds(url,
            QStringLiteral("SELECT site_id, item, sum(cents), sum(units) FROM sales WHERE day BETWEEN '%1' AND '%2' GROUP BY site_id, item")
                .arg(weekFrom, weekTo));
        program += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = program / yardstick;
    state.counters["yardstick_ms"] = yardstick / double(state.iterations()) * 1000;
    state.counters["day_by_index"] = dayReadsOnePartitionByIndex(database) ? 1 : 0;
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
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

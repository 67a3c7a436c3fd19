// Each report run whole, as a manager starts it: the program driven by a script from its start to
// its end on a generated site, against a yardstick that reads the same data in the same run, the
// plainest way there is. The time of an iteration is the program's CPU time; "ratio" is that over
// the yardstick's CPU time, "peak_MiB" the program's largest resident set.
#include "bench/BenchSites.h"
#include "bench/ChildRun.h"
#include "store/CatalogueFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <mdbtools.h>
#include <sqlite3.h>
#include <unistd.h>

#include <charconv>
#include <functional>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace qlon::bench {
namespace {

const QByteArray idleScript = "# the main screen and nothing else\n";

// Runs both once per iteration and reports their costs. With a site, the program is also started
// there with nothing to do: "start_ms" is that start, and "work_ratio" what the report costs
// beyond it over the yardstick, the part of the ratio that isn't the price of a Qt program.
void measure(
    benchmark::State &state, const QString &site, const std::function<ChildCost()> &program, const std::function<double()> &yardstick)
{
    double programCpu = 0;
    double yardstickCpu = 0;
    double startCpu = 0;
    double peak = 0;
    for (auto _ : state) {
        // The program and its yardstick each start with no writes of the other pending: a
        // report's output, written back while the copy ran, made the copy's cost swing by half.
        ::sync();
        const ChildCost cost = program();
        programCpu += cost.cpuSeconds;
        peak = std::max(peak, cost.peakMiB);
        ::sync();
        yardstickCpu += yardstick();
        if (!site.isEmpty())
            startCpu += RunProgramScript(site, idleScript).cpuSeconds;
        state.SetIterationTime(cost.cpuSeconds);
    }
    const auto iterations = double(state.iterations());
    yardstickCpu = std::max(yardstickCpu, 1e-9);
    state.counters["ratio"] = programCpu / yardstickCpu;
    state.counters["yardstick_ms"] = yardstickCpu / iterations * 1000;
    state.counters["peak_MiB"] = peak;
    if (!site.isEmpty()) {
        state.counters["start_ms"] = startCpu / iterations * 1000;
        state.counters["work_ratio"] = (programCpu - startCpu) / yardstickCpu;
    }
}

// The CPU time that the work takes in this process.
double cpuOf(const std::function<void()> &work)
{
    const double start = OwnCpuSeconds();
    work();
    return OwnCpuSeconds() - start;
}

// Steps the statement to its end, touching each column of each row.
void stepAll(const QString &databasePath, const char *sql)
{
    sqlite3 *handle = nullptr;
    sqlite3_open_v2(QFile::encodeName(databasePath).constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *query = nullptr;
    sqlite3_prepare_v2(handle, sql, -1, &query, nullptr);
    qint64 bytes = 0;
    while (sqlite3_step(query) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(query); ++column)
            bytes += sqlite3_column_bytes(query, column);
    }
    benchmark::DoNotOptimize(bytes);
    sqlite3_finalize(query);
    sqlite3_close(handle);
}

// The main screen's job: the list of every item loaded, then Calculate Sales over the start dates.
const QByteArray calculateSalesScript = "click QLONlistBuilder1.SSOption6\n"
                                        "click QLONlistBuilder1.SSCommand2\n"
                                        "click QLONlistBuilder1.SSCommand4\n"
                                        "wait\n";

void BM_CalculateSales(benchmark::State &state)
{
    const QString site = SalesSite(int(state.range(0)));
    measure(
        state, site, [&] { return RunProgramScript(site, calculateSalesScript); },
        [&] {
            return cpuOf([&] {
                stepAll(SalesDatabasePath(site),
                    "SELECT Item, SUM(UnitPrice), SUM(Quantity) FROM ItemsSold "
                    "WHERE OrderDate >= '2026-11-17' AND OrderDate < '2026-11-24' GROUP BY Item");
            });
        });
}
BENCHMARK(BM_CalculateSales)->Arg(100000)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CalculateSales)->Arg(1000000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

// The fields of a monthly line, its quotes taken off.
void splitLine(std::string_view line, std::vector<std::string_view> &fields)
{
    fields.clear();
    while (!line.empty()) {
        const std::size_t comma = line.find(',');
        std::string_view field = line.substr(0, comma);
        if (field.size() >= 2 && field.front() == '"')
            field = field.substr(1, field.size() - 2);
        fields.push_back(field);
        line = comma == std::string_view::npos ? std::string_view() : line.substr(comma + 1);
    }
}

double leadingNumber(std::string_view text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// Every monthly file of the site read whole, each line split into its fields and added up by item.
void sumMonthlyFiles(const QString &site)
{
    struct Sums
    {
        double quantity = 0;
        double amount = 0;
    };
    std::unordered_map<std::string, Sums> items;
    std::vector<std::string_view> fields;
    const QDir data(QDir(site).filePath(QStringLiteral("Quillon/data")));
    for (const QString &name : data.entryList({QStringLiteral("ItemsSold*.DAT")}, QDir::Files)) {
        QFile file(data.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        std::string_view rest(bytes.constData(), std::size_t(bytes.size()));
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view line = rest.substr(0, end);
            rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
            if (line.ends_with('\r'))
                line.remove_suffix(1);
            splitLine(line, fields);
            if (fields.size() < 4)
                continue;
            Sums &sums = items[std::string(fields[2])];
            sums.quantity += leadingNumber(fields[1]);
            sums.amount += leadingNumber(fields[3]);
        }
    }
    benchmark::DoNotOptimize(items);
}

void BM_ItemsSoldUpdateList(benchmark::State &state)
{
    const QString site = MonthlySalesSite(int(state.range(0)));
    const QByteArray script = "show QlonItemsSold\n"
                              "set QlonItemsSold.Label2 01/01/25\n"
                              "set QlonItemsSold.Label3 12/31/25\n"
                              "click QlonItemsSold.SSCommand4\n"
                              "wait\n";
    measure(
        state, site, [&] { return RunProgramScript(site, script); }, [&] { return cpuOf([&] { sumMonthlyFiles(site); }); });
}
BENCHMARK(BM_ItemsSoldUpdateList)->Arg(1000000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_ServerSearch(benchmark::State &state)
{
    const QString site = SalesSite(int(state.range(0)));
    const QByteArray script = "click QLONlistBuilder1.SSCommand9\n"
                              "set QLONserverLiquor.Combo1 " +
        SearchedServer.toByteArray() +
        "\n"
        "click QLONserverLiquor.Command1\n";
    const QByteArray like = "SELECT EmpNumber, OrderDate, Item, UnitPrice, ItemType, Time, Quantity FROM ItemsSold "
                            "WHERE EmpNumber LIKE '%" +
        SearchedServer.toByteArray() + "%'";
    measure(
        state, site, [&] { return RunProgramScript(site, script); },
        [&] { return cpuOf([&] { stepAll(SalesDatabasePath(site), like.constData()); }); });
}
BENCHMARK(BM_ServerSearch)->Arg(1000000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

// The catalogue files that the rebuild reads, each read whole and written to another folder.
void copyCatalogue(const QString &site)
{
    const QTemporaryDir target;
    int copied = 0;
    for (const CatalogueFile &files : GatheredCatalogueFiles()) {
        for (const QByteArray &file : {files.items, files.recipes}) {
            QFile source(QDir(QDir(site).filePath(QStringLiteral("Quillon"))).filePath(QString::fromLatin1(file).replace(u'\\', u'/')));
            if (!source.open(QIODevice::ReadOnly))
                continue;
            QFile copy(target.filePath(QString::number(++copied)));
            if (!copy.open(QIODevice::WriteOnly) || copy.write(source.readAll()) < 0)
                throw std::runtime_error("can't copy a catalogue file");
        }
    }
}

void BM_RebuildItems(benchmark::State &state)
{
    const QString site = CatalogueSite(int(state.range(0)), int(state.range(1)));
    measure(
        state, site, [&] { return RunProgramScript(site, "click QLONlistBuilder1.SSCommand8\nwait\n"); },
        [&] { return cpuOf([&] { copyCatalogue(site); }); });
}
BENCHMARK(BM_RebuildItems)->Args({60, 1000})->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

// libmdb's own loop over every row of the table, each column bound.
void fetchJetTable(const QString &path)
{
    MdbHandle *mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (!mdb)
        return;
    mdb_read_catalog(mdb, MDB_ANY);
    char table[] = "ItemsSold";
    MdbTableDef *sales = mdb_read_table_by_name(mdb, table, MDB_TABLE);
    mdb_read_columns(sales);
    mdb_rewind_table(sales);
    std::vector<std::vector<char>> values(sales->num_cols, std::vector<char>(MDB_BIND_SIZE));
    std::vector<int> lengths(sales->num_cols);
    for (unsigned int column = 0; column < sales->num_cols; ++column)
        mdb_bind_column(sales, int(column) + 1, values[column].data(), &lengths[column]);
    qint64 rows = 0;
    while (mdb_fetch_row(sales))
        ++rows;
    benchmark::DoNotOptimize(rows);
    mdb_free_tabledef(sales);
    mdb_close(mdb);
}

void BM_JetCalculateSales(benchmark::State &state)
{
    const QString site = JetSalesSite(int(state.range(0)));
    measure(
        state, site, [&] { return RunProgramScript(site, calculateSalesScript); },
        [&] { return cpuOf([&] { fetchJetTable(SalesDatabasePath(site)); }); });
}
BENCHMARK(BM_JetCalculateSales)->Arg(1000000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_StartUp(benchmark::State &state)
{
    const QString site = SalesSite(100000);
    measure(
        state, {}, [&] { return RunProgramScript(site, idleScript); },
        [] { return RunChild(QStringLiteral(QLON_BARE_WINDOW), {}).cpuSeconds; });
}
BENCHMARK(BM_StartUp)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qlon::bench

BENCHMARK_MAIN();

// Calculate Sales over a big span, against a bare GROUP BY of SQLite over the same rows.
#include "bench/BenchSites.h"
#include "serversales/logic/SpanSales.h"
#include "store/JetSalesStore.h"

#include <QFileInfo>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace qlon {
namespace {

constexpr int rowCount = 1000000;

QString databasePath()
{
    return bench::SalesDatabasePath(bench::SalesSite(rowCount));
}

const SalesSpan week{"11/17/2026", "11/23/2026", "12:00 AM", "11:59 PM"};

// The run's work without the screen: the span read once, then every item's figures.
void BM_CalculateSales(benchmark::State &state)
{
    const QString path = databasePath();
    for (auto _ : state) {
        const std::unique_ptr<SalesStore> store = OpenSalesStore(path);
        const SpanSales sales(*store, week);
        double total = 0;
        for (int index = 0; index < bench::SalesItemCount; ++index)
            total += sales.of(bench::SalesItemName(index)).sales;
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * rowCount);
}
BENCHMARK(BM_CalculateSales)->Unit(benchmark::kMillisecond)->UseRealTime();

// The yardstick: SQLite's own sums per item over the same rows.
void BM_GroupByYardstick(benchmark::State &state)
{
    sqlite3 *handle = nullptr;
    sqlite3_open_v2(databasePath().toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *query = nullptr;
    sqlite3_prepare_v2(handle,
        "SELECT Item, SUM(UnitPrice), SUM(Quantity) FROM ItemsSold "
        "WHERE OrderDate >= '2026-11-17' AND OrderDate < '2026-11-24' GROUP BY Item",
        -1, &query, nullptr);
    for (auto _ : state) {
        double total = 0;
        while (sqlite3_step(query) == SQLITE_ROW)
            total += sqlite3_column_double(query, 1);
        sqlite3_reset(query);
        benchmark::DoNotOptimize(total);
    }
    sqlite3_finalize(query);
    sqlite3_close(handle);
    state.SetItemsProcessed(state.iterations() * rowCount);
}
BENCHMARK(BM_GroupByYardstick)->Unit(benchmark::kMillisecond)->UseRealTime();

// The Jet reader on a real file written by Access: every column of the 830 orders.
void BM_JetReadOrders(benchmark::State &state)
{
    const QString path = QStringLiteral(QLON_JET_FIXTURES "/nwind.mdb");
    if (!QFileInfo::exists(path)) {
        state.SkipWithError("the Jet fixtures are not there");
        return;
    }
    const QByteArrayList columns = {"OrderID", "CustomerID", "EmployeeID", "OrderDate", "RequiredDate", "ShippedDate", "ShipVia", "Freight",
        "ShipName", "ShipAddress", "ShipCity", "ShipRegion", "ShipPostalCode", "ShipCountry"};
    JetTable orders(path, "Orders", columns);
    qint64 rows = 0;
    for (auto _ : state) {
        orders.rewind();
        while (orders.next()) {
            for (qsizetype column = 0; column < columns.size(); ++column)
                benchmark::DoNotOptimize(orders.value(column));
            ++rows;
        }
    }
    state.SetItemsProcessed(rows);
}
BENCHMARK(BM_JetReadOrders)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qlon

BENCHMARK_MAIN();

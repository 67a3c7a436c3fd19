// Calculate Sales over a big span, against a bare GROUP BY of SQLite over the same rows.
#include "core/FixedField.h"
#include "serversales/logic/SpanSales.h"
#include "store/JetSalesStore.h"
#include "store/SqliteSalesWriter.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace qlon {
namespace {

constexpr int itemCount = 2000;
constexpr int rowCount = 1000000;

QByteArray itemName(int index)
{
    return "Item " + QByteArray::number(index).rightJustified(4, '0');
}

// A week of sales, 1,000,000 lines of 2,000 items, all in the span, in the order the stations
// write them: day by day, from 10 AM to 11 PM, four lines to an order.
class BigSalesDatabase
{
public:
    BigSalesDatabase()
    {
        SqliteSalesWriter writer(path());
        constexpr int days = 7;
        constexpr int linesPerDay = rowCount / days + 1;
        constexpr int secondsOpen = 13 * 3600;
        for (int line = 0; line < rowCount; ++line) {
            const int lineOfDay = line % linesPerDay;
            const QTime sold = QTime(10, 0).addSecs(int(qint64(lineOfDay) * secondsOpen / linesPerDay));
            SalesRow row;
            row[OrderID] = QByteArray::number(line / 4);
            row[OrderDate] = "2026-11-" + QByteArray::number(16 + line / linesPerDay);
            row[ReceiptID] = "R" + QByteArray::number(line / 4);
            row[Quantity] = QByteArray::number(1 + line % 3);
            row[Item] = itemName(int((line * 7919LL) % itemCount));
            row[ItemType] = line % 3 == 0 ? "L" : "F";
            row[UnitPrice] = QByteArray::number(2.5 + (line % 40) * 0.25, 'f', 2);
            row[Time] = sold.toString(u"HH:mm:ss").toLatin1();
            row[SaleType] = "Dine In";
            row[OrderNumber] = QByteArray::number(line % 1000);
            writer.add(row);
        }
        writer.commit();
    }

    QString path() const { return m_folder.filePath(QStringLiteral("Quillon.mdb")); }

private:
    QTemporaryDir m_folder;
};

const BigSalesDatabase &database()
{
    static const BigSalesDatabase big;
    return big;
}

const SalesSpan week{"11/16/2026", "11/23/2026", "12:00 AM", "11:59 PM"};

// The run's work without the screen: the span read once, then every item's figures.
void BM_CalculateSales(benchmark::State &state)
{
    const QString path = database().path();
    for (auto _ : state) {
        const std::unique_ptr<SalesStore> store = OpenSalesStore(path);
        const SpanSales sales(*store, week);
        double total = 0;
        for (int index = 0; index < itemCount; ++index)
            total += sales.of(itemName(index)).sales;
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * rowCount);
}
BENCHMARK(BM_CalculateSales)->Unit(benchmark::kMillisecond)->UseRealTime();

// The yardstick: SQLite's own sums per item over the same rows.
void BM_GroupByYardstick(benchmark::State &state)
{
    sqlite3 *handle = nullptr;
    sqlite3_open_v2(database().path().toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *query = nullptr;
    sqlite3_prepare_v2(handle,
        "SELECT Item, SUM(UnitPrice), SUM(Quantity) FROM ItemsSold "
        "WHERE OrderDate >= '2026-11-16' AND OrderDate <= '2026-11-23 00:00:00' GROUP BY Item",
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

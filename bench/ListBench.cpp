// Remove Items over a long list, such as a departments file of 280,000 names leaves, against its
// yardstick, the plain copy of the rows it starts from.
#include "core/ListRows.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "ui/MList.h"

#include <QApplication>
#include <QElapsedTimer>

#include <benchmark/benchmark.h>

namespace qlon {
namespace {

QByteArrayList generatedRows(int count)
{
    QByteArrayList rows;
    for (int row = 0; row < count; ++row)
        rows.append("**Department " + QByteArray::number(row) + "|Total|" + QByteArray::number(row % 3) + "|0|$0.00|Q8$|Q9$|Q5$");
    return rows;
}

// The walk as the screen runs it: on plain rows, then the list control filled once.
void removeOnPlainRows(const QByteArrayList &source, MList &list)
{
    ListRows rows;
    for (const QByteArray &text : source)
        rows.addRow(text);
    RemoveRowsWithoutUnits(rows, [](int, int) {});
    list.clear();
    for (int row = 0; row < rows.rowCount(); ++row)
        list.addRow(rows.rowText(row));
    if (rows.rowCount() > 0)
        list.setRowSelected(rows.rowCount() - 1, true);
}

template<void (*Remove)(const QByteArrayList &, MList &)>
void BM_RemoveItems(benchmark::State &state)
{
    const QByteArrayList source = generatedRows(int(state.range(0)));
    MList list;
    list.resize(400, 300);
    list.show();
    qint64 removing = 0;
    qint64 copying = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        Remove(source, list);
        removing += clock.nsecsElapsed();
        clock.restart();
        QByteArrayList copy;
        for (const QByteArray &text : source)
            copy.append(text);
        benchmark::DoNotOptimize(copy);
        copying += clock.nsecsElapsed();
    }
    state.counters["ratio"] = double(removing) / double(std::max<qint64>(copying, 1));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(BM_RemoveItems<removeOnPlainRows>)->Arg(20000)->Arg(280000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qlon

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// Rebuild Items and Load List on a generated site of realistic size.
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "demo/DemoCatalogue.h"
#include "listbuilder/logic/LoadList.h"
#include "platform/PathMap.h"
#include "rebuild/logic/RebuildItems.h"
#include "store/ItemRec500.h"
#include "store/SiteConfig.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace qlon {
namespace {

// A site of `fileCount` catalogue files of `recordsPerFile` records, drive C: standing for it.
class GeneratedSite
{
public:
    GeneratedSite(int fileCount, int recordsPerFile)
    {
        SitePaths().mapDrive(QLatin1Char('C'), m_folder.path());
        const QString site = QDir(m_folder.path()).filePath(QStringLiteral("Quillon"));
        QDir().mkpath(site + QStringLiteral("/Temp"));
        WriteGeneratedCatalogue(site, fileCount, recordsPerFile);
        Site().DataRoot = "C:\\Quillon\\";
        Site().Config.setField(IniRec2300::LiquorRebuild, "-1");
    }

private:
    QTemporaryDir m_folder;
};

void rebuild()
{
    RebuildItems::EmptyTempFiles();
    RebuildItems({[](int, int) {}, [](int) {}, [](int) {}, [] {}}).Run();
}

void BM_RebuildItems(benchmark::State &state)
{
    const GeneratedSite site(int(state.range(0)), int(state.range(1)));
    for (auto _ : state)
        rebuild();
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}
BENCHMARK(BM_RebuildItems)->Args({60, 1000})->Unit(benchmark::kMillisecond);

// Load List reads at most 3000 records: the old table of names ends there.
void BM_LoadList(benchmark::State &state)
{
    const GeneratedSite site(3, 1000);
    rebuild();
    CategoryChoice all;
    all.all = true;
    for (auto _ : state) {
        RecordFile catalogue(HostPath(DataPath("Temp\\TempInvLB.dat")), ItemRec500::size);
        catalogue.LockAll();
        benchmark::DoNotOptimize(ListItems(catalogue, all));
    }
    state.SetItemsProcessed(state.iterations() * 3000);
}
BENCHMARK(BM_LoadList)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qlon

BENCHMARK_MAIN();

// The sales database, SQLite or Jet (its catalogue checked apart first), through both selects.
#include "fuzz/FuzzSite.h"
#include "store/JetCheck.h"
#include "store/SalesStore.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool checked = (qlon::SetJetChecker(QStringLiteral(QLON_JET_CHECKER)), true);
    Q_UNUSED(checked);
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/data/Quillon.mdb"), data, size);
    return qlon::fuzz::Survive([&] {
        const std::unique_ptr<qlon::SalesStore> store = qlon::OpenSalesStore(path);
        store->SelectAll([](const qlon::SalesRow &) { return true; });
        store->SelectSpan("1/1/2004", "12/31/2004", qlon::EverySalesColumn, [](const qlon::SalesRow &) { return true; });
    });
}

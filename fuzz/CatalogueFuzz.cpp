// A catalogue file through Load List, and its recipes through the food cost.
#include "core/RecordFile.h"
#include "fuzz/FuzzSite.h"
#include "listbuilder/logic/LoadList.h"
#include "store/ItemRec500.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/Temp/TempInv.dat"), data, size);
    return qlon::fuzz::Survive([&] {
        qlon::RecordFile catalogue(path, qlon::ItemRec500::size);
        qlon::CategoryChoice everything;
        everything.all = true;
        qlon::ListItems(catalogue, everything);
    });
}

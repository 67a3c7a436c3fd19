// A monthly sales file through its reader, record by record.
#include "fuzz/FuzzSite.h"
#include "store/MonthlySales.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), data, size);
    const QString rejects = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/Items.tmp"), nullptr, 0);
    return qlon::fuzz::Survive([&] {
        qlon::MonthlySalesFile month(path, rejects);
        while (month.next()) { }
    });
}

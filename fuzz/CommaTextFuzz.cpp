// The comma text form, field by field, as the departments and start dates are read.
#include "core/TextFile.h"
#include "fuzz/FuzzSite.h"
#include "store/Departments.h"
#include "store/StartDates.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/data/Departments.dat"), data, size);
    return qlon::fuzz::Survive([&] {
        qlon::ReadDepartmentNames(path);
        qlon::ReadStartDates(path);
    });
}

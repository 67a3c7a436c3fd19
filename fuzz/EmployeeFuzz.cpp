// The employee file, as the server picker reads it.
#include "fuzz/FuzzSite.h"
#include "store/EmployeeRec1000.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/Data/Zemployee.dat"), data, size);
    return qlon::fuzz::Survive([&] { qlon::ServerNumbers(path); });
}

// The configuration record QlonINI.dat and the paths it gives.
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "fuzz/FuzzSite.h"
#include "store/SiteConfig.h"
#include "store/SiteState.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    qlon::fuzz::WriteSiteFile(QStringLiteral("Quillon/QlonINI.dat"), data, size);
    qlon::ResetSiteState();
    return qlon::fuzz::Survive([] {
        qlon::ReadConfiguration();
        qlon::CloseAll();
        qlon::HostPath(qlon::DataPath("data\\Departments.dat"));
    });
}

#include "store/SiteState.h"

#include "core/ProcessState.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"

namespace qlon {

void ResetSiteState()
{
    ResetCoreState();
    Site() = SiteGlobals{};
    Shared() = ProgramGlobals{};
}

} // namespace qlon

#include "core/ProcessState.h"

#include "core/Clock.h"
#include "core/FileTable.h"

namespace qlon {

void ResetCoreState()
{
    FixClock({});
    CloseAll();
}

} // namespace qlon

#include "ui/ProgramState.h"

#include "store/SiteState.h"
#include "ui/Dialogs.h"
#include "ui/ScreenRegistry.h"

namespace qlon {

void ResetProgramState(QTextStream *messages)
{
    Screens().clear();
    Dialogs::resetScript(messages);
    ResetSiteState();
}

} // namespace qlon

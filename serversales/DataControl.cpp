#include "serversales/DataControl.h"

#include "store/SiteConfig.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"

#include <QWidget>

namespace qlon {

std::unique_ptr<SalesStore> OpenDataControl(QWidget *screen)
{
    try {
        return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
    } catch (const RuntimeError &error) {
        Dialogs::showMessage(screen, screen->windowTitle(), QStringLiteral("Data error event hit err:") + error.description(),
            MessageButtons::Ok, WhereItHappened(error));
        return nullptr;
    }
}

} // namespace qlon

#include "serversales/DataControl.h"

#include "store/SiteConfig.h"
#include "ui/Dialogs.h"

#include <QWidget>

namespace qlon {

std::unique_ptr<SalesStore> OpenDataControl(QWidget *screen)
{
    try {
        return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
    } catch (const RuntimeError &error) {
        Dialogs::showMessage(screen, screen->windowTitle(), QStringLiteral("Data error event hit err:") + error.description());
        return nullptr;
    }
}

} // namespace qlon

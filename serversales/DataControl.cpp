#include "serversales/DataControl.h"

#include "serversales/logic/SalesRecordset.h"

#include "store/SiteConfig.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"

#include <QWidget>

namespace qlon {

namespace {

std::unique_ptr<SalesStore> openSalesDatabase()
{
    return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
}

void showDataError(QWidget *screen, const RuntimeError &error)
{
    Dialogs::showMessage(screen, ProgramTitle, QStringLiteral("Data error event hit err:") + error.description(), MessageButtons::Ok,
        WhereItHappened(error));
}

} // namespace

std::unique_ptr<SalesStore> OpenDataControl(QWidget *screen)
{
    try {
        return openSalesDatabase();
    } catch (const RuntimeError &error) {
        showDataError(screen, error);
        return nullptr;
    }
}

void OpenDataControl(QWidget *screen, SalesRecordset &recordset)
{
    try {
        recordset.open(openSalesDatabase);
    } catch (const RuntimeError &error) {
        showDataError(screen, error);
    }
}

} // namespace qlon

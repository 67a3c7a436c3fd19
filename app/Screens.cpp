#include "app/Screens.h"

#include "editors/BackOffice.h"
#include "editors/FItemButtonFood.h"
#include "editors/PrinterStatus.h"
#include "editors/QlonUpDept.h"
#include "editors/TCEmployee.h"
#include "itemssold/QlonItemsSold.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "listbuilder/QLONlistBuilder3.h"
#include "rebuild/QlonExit.h"
#include "serversales/QLONlistBuilder2.h"
#include "serversales/QLONserverLiquor.h"
#include "ui/ScreenRegistry.h"

namespace qlon {

void RegisterScreens()
{
    Screens().add(QStringLiteral("QLONlistBuilder1"), [] { return new QLONlistBuilder1; });
    Screens().add(QStringLiteral("QLONlistBuilder2"), [] { return new QLONlistBuilder2; });
    Screens().add(QStringLiteral("QLONserverLiquor"), [] { return new QLONserverLiquor; });
    Screens().add(QStringLiteral("QLONlistBuilder3"), [] { return new QLONlistBuilder3; });
    Screens().add(QStringLiteral("QlonExit"), [] { return new QlonExit; });
    Screens().add(QStringLiteral("QlonItemsSold"), [] { return new QlonItemsSold; });
    Screens().add(QStringLiteral("QlonUpDept"), [] { return new QlonUpDept; });
    Screens().add(QStringLiteral("PrinterStatus"), [] { return new PrinterStatus; });
    Screens().add(QStringLiteral("TCEmployee"), [] { return new TCEmployee; });
    Screens().add(QStringLiteral("FItemButtonFood"), [] { return new FItemButtonFood; });
    RegisterBackOfficeScreens();
}

} // namespace qlon

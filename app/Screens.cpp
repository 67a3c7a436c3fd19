#include "app/Screens.h"

#include "editors/BackOffice.h"
#include "editors/ButtonView.h"
#include "editors/FItemButtonFood.h"
#include "editors/ListEditor.h"
#include "editors/PhoneList.h"
#include "editors/PrinterListView.h"
#include "editors/PrinterQueueView.h"
#include "editors/PrinterStatus.h"
#include "editors/QlonUpDept.h"
#include "editors/RecipeView.h"
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
    // The host of the screens above, and the views it sets beside the item editor.
    Screens().add(QStringLiteral("BackOffice"), [] { return new BackOffice; });
    Screens().add(QStringLiteral("ButtonView"), [] { return new ButtonView; });
    Screens().add(QStringLiteral("RecipeView"), [] { return new RecipeView; });
    // The companions of the employee editor and the printer status screen that this host can
    // make real; the others belong to the stations' back office.
    Screens().add(QStringLiteral("ListEditor"), [] { return new ListEditor; });
    Screens().add(QStringLiteral("PhoneList"), [] { return new PhoneList; });
    Screens().add(PrinterQueueCompanion, [] { return new PrinterQueueView(PrinterQueueView::Kind::Queue); });
    Screens().add(PrinterDetailsCompanion, [] { return new PrinterQueueView(PrinterQueueView::Kind::Details); });
    Screens().add(PrinterListCompanion, [] { return new PrinterListView; });
}

} // namespace qlon

#pragma once

#include "ui/ScreenRegistry.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace qlon {

// "Items Sold — Reports", the back office of this program: the way in to the screens that the list builder's own screen doesn't open:
// the Items Sold analysis, the employees, the printers and the item buttons, and the list
// builder itself when the program was started on this screen.
class BackOffice : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    explicit BackOffice(QWidget *parent = nullptr);

    void Form_Load() override;

    QLabel *lblSite;
    QPushButton *cmdListBuilder;
    QPushButton *cmdItemsSold;
    QPushButton *cmdItemButtons;
    QPushButton *cmdEmployees;
    QPushButton *cmdPrinters;
    QPushButton *cmdChangeSite;
    QPushButton *cmdClose;

private:
    void changeSite();
};

// Registers the host and the screens it sets beside the ones it opens: the item editor's button
// and recipe views, the employee editor's list editor and phone list, and the printer status
// screen's views of the system's printers and queues.
void RegisterBackOfficeScreens();

} // namespace qlon

#pragma once

#include "editors/TCEmployee.h"

#include <QWidget>

class QPushButton;
class QTableWidget;

namespace qlon {

// "Phone List": the active employees of Data\Zemployee.dat below SiteRoot, by name, with their
// phone and emergency contact.
class PhoneList : public QWidget, public PhoneListCompanion
{
    Q_OBJECT

public:
    explicit PhoneList(QWidget *parent = nullptr);

    // Lists the employees and shows the list.
    void Command3_Click() override;

    QTableWidget *grdPhones;
    QPushButton *cmdClose;
};

} // namespace qlon

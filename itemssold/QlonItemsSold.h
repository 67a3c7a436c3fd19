#pragma once

#include <QWidget>

namespace qlon {

class VbComboBox;

// The richer Items Sold analysis of the monthly sales files. The main screen only creates it,
// through its sort options; of its controls, only the department filter stands so far, which
// the departments editor reloads.
class QlonItemsSold : public QWidget
{
    Q_OBJECT

public:
    explicit QlonItemsSold(QWidget *parent = nullptr);

    VbComboBox *Combo2; // "Show only this Department"
};

} // namespace qlon

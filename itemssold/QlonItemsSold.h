#pragma once

#include <QWidget>

namespace qlon {

// The richer Items Sold analysis of the monthly sales files. The main screen only creates it,
// through its sort options; its controls and scans come in their own time.
class QlonItemsSold : public QWidget
{
    Q_OBJECT

public:
    explicit QlonItemsSold(QWidget *parent = nullptr);
};

} // namespace qlon

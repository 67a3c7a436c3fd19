#include "itemssold/QlonItemsSold.h"

namespace qlon {

QlonItemsSold::QlonItemsSold(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Items Sold"));
}

} // namespace qlon

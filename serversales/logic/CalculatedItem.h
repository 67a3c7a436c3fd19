#pragma once

#include "serversales/logic/SpanSales.h"

#include <QByteArray>
#include <QByteArrayList>

namespace qlon {

// One item of a Calculate Sales run as the run writes it.
struct CalculatedItem
{
    // "name|type|price|units|volume|units key|volume key|actual" for the working list.
    QByteArray rowText;
    // The item's line of TempItems.dat: its tag, units and actual sales.
    QByteArrayList tempItemsLine;
    // The sales as the report keeps them, read back from "#########.##", and the units.
    double sales = 0;
    double units = 0;
};

CalculatedItem CalculateItem(
    const ItemSales &sold, const QByteArray &name, const QByteArray &tag, const QByteArray &type, const QByteArray &price);

} // namespace qlon

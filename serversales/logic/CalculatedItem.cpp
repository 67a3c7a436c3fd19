#include "serversales/logic/CalculatedItem.h"

#include "core/Conversions.h"
#include "core/ErrorIgnoring.h"
#include "core/Format.h"

namespace qlon {

namespace {

// The sort keys of the row: the text filled with zeros on the left and cut to ten characters
// from the right, so that a longer text loses its left end.
QByteArray sortKey(const QByteArray &text)
{
    return ("0000000000" + text).right(10);
}

} // namespace

CalculatedItem CalculateItem(
    const ItemSales &sold, const QByteArray &name, const QByteArray &tag, const QByteArray &type, const QByteArray &price)
{
    CalculatedItem item;
    const QByteArray actual = Format(sold.sales, "#########.##");
    item.sales = actual == "." ? 0.0 : NumericValue(actual);
    item.units = sold.units;
    // Deliberately kept: with no sales the money text can't be made, and the column shows what
    // its variable held, the receipt of the item's last row read.
    QByteArray money = sold.lastReceipt;
    AssignUnlessFailed(money, Currency(actual));
    const QByteArray units = PlainNumber(sold.units);
    item.rowText =
        name + '|' + type + '|' + price + '|' + units + '|' + money + '|' + sortKey(units) + '|' + sortKey(actual) + '|' + actual;
    item.tempItemsLine = {tag, units, actual};
    return item;
}

} // namespace qlon

#include "serversales/SpanSales.h"

#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FixedField.h"
#include "core/Format.h"

namespace qlon {

namespace {

// Each test holds when one of its values can't be read: the row is then rejected.
bool before(const std::optional<QDate> &date, const std::optional<QDate> &limit)
{
    return HoldsUnlessFailed(date && limit ? std::optional(*date < *limit) : std::nullopt);
}

bool onDayOutsideHours(const std::optional<QDate> &date, const std::optional<QDate> &day, const std::optional<QTime> &time,
                       const std::optional<QTime> &limit, bool limitIsStart)
{
    if (!date || !day || !time || !limit)
        return HoldsUnlessFailed(std::nullopt);
    return *date == *day && (limitIsStart ? *time < *limit : *time > *limit);
}

// A line's price rounded to cents; a text that is no number counts as its leading number.
double roundedPrice(QByteArrayView price)
{
    const std::optional<double> number = ToNumber(price);
    return NumericValue(number ? Format(*number, "########.##") : price.toByteArray());
}

} // namespace

void CarriedColumns::take(const SalesRow &row, std::initializer_list<SalesColumn> columns)
{
    for (SalesColumn column : columns) {
        if (row[column])
            m_texts[column] = TrimBlanks(*row[column]);
    }
}

bool InSpan(QByteArrayView orderDate, QByteArrayView time, const SalesSpan &span)
{
    const std::optional<QDate> date = ToDate(orderDate);
    const std::optional<QDate> from = ToDate(span.fromDate);
    const std::optional<QDate> to = ToDate(span.toDate);
    if (before(date, from) || before(to, date))
        return false;
    const std::optional<QTime> rowTime = ToTime(time);
    return !onDayOutsideHours(date, from, rowTime, ToTime(span.startTime), true)
        && !onDayOutsideHours(date, to, rowTime, ToTime(span.endTime), false);
}

SpanSales::SpanSales(SalesStore &store, const SalesSpan &span)
{
    QHash<QByteArray, CarriedColumns> carried;
    QByteArray item;
    store.SelectSpan(span.fromDate, span.toDate, [&](const SalesRow &row) {
        // A null item keeps the name of the row before it, whatever item that was.
        if (row[Item])
            item = TrimBlanks(*row[Item]);
        CarriedColumns &columns = carried[item];
        columns.take(row, {OrderID, OrderDate, Item, UnitPrice, ItemType, Quantity, Time, ReceiptID, OrderNumber, SaleType});
        if (item.isEmpty() || !InSpan(columns[OrderDate], columns[Time], span)) {
            m_items[item].lastReceipt = columns[ReceiptID];
            return true;
        }
        ItemSales &sales = m_items[item];
        sales.lastReceipt = columns[ReceiptID];
        sales.sales += roundedPrice(columns[UnitPrice]);
        sales.units += NumericValue(columns[Quantity]);
        sales.trace.append({columns[Item], columns[OrderID], columns[Quantity], columns[OrderDate], columns[ReceiptID],
                            columns[OrderNumber], columns[SaleType]});
        return true;
    });
}

const ItemSales &SpanSales::of(const QByteArray &name) const
{
    static const ItemSales nothing;
    const auto found = m_items.constFind(name);
    return found == m_items.constEnd() ? nothing : *found;
}

} // namespace qlon

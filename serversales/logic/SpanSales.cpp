#include "serversales/logic/SpanSales.h"

#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/TextFile.h"

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

} // namespace

SpanFilter::SpanFilter(const SalesSpan &span)
    : m_from(ToDate(span.fromDate))
    , m_to(ToDate(span.toDate))
    , m_start(ToTime(span.startTime))
    , m_end(ToTime(span.endTime))
{
}

bool SpanFilter::contains(QByteArrayView orderDate, QByteArrayView time)
{
    const std::optional<QDate> date = m_dates.get(orderDate, [orderDate] { return ToDate(orderDate); });
    if (before(date, m_from) || before(m_to, date))
        return false;
    const std::optional<QTime> rowTime = SaleTime(time, m_times);
    return !onDayOutsideHours(date, m_from, rowTime, m_start, true) && !onDayOutsideHours(date, m_to, rowTime, m_end, false);
}

bool InSpan(QByteArrayView orderDate, QByteArrayView time, const SalesSpan &span)
{
    return SpanFilter(span).contains(orderDate, time);
}

std::optional<QTime> SaleTime(QByteArrayView time, Memo<QByteArray, std::optional<QTime>> &times)
{
    // Times in the long form are read directly: a memo of them would grow with the rows' seconds.
    if (const std::optional<QTime> longTime = ReadLongTime(time))
        return longTime;
    return times.get(time, [time] { return ToTime(time); });
}

double LinePrice(QByteArrayView price, Memo<QByteArray, double> &roundedPrices)
{
    // Prices change from row to row: a memo of the plain ones would grow with them.
    if (const std::optional<double> plainPrice = ReadUnsignedDecimal(price, 2))
        return *plainPrice;
    return roundedPrices.get(price, [price] { return FormattedValue(price, "########.##"); });
}

SpanSales::SpanSales(SalesStore &store, const SalesSpan &span, const CountedRow &counted)
{
    const SalesColumns read = ColumnsOf({OrderID, OrderDate, Item, UnitPrice, Quantity, Time, ReceiptID, OrderNumber, SaleType});
    SpanFilter filter(span);
    Memo<QByteArray, double> roundedPrices;
    QByteArray item;
    std::string line;
    store.SelectSpan(span.fromDate, span.toDate, read, [&](const SalesRow &row) {
        // A null item keeps the name of the row before it, whatever item that was.
        if (row[Item])
            AssignTrimmed(item, *row[Item]);
        ItemWalk &walk = m_items[item];
        CarriedColumns &columns = walk.columns;
        columns.take(row, read);
        ItemSales &sales = walk.sales;
        if (item.isEmpty() || !filter.contains(columns[OrderDate], columns[Time]))
            return true;
        const double amount = LinePrice(columns[UnitPrice], roundedPrices);
        sales.sales += amount;
        if (counted)
            counted(item, columns[OrderDate], columns[Time], amount);
        sales.units += NumericValue(columns[Quantity]);
        line.clear();
        AppendQuotedLine(line,
            {columns[Item], columns[OrderID], columns[Quantity], columns[OrderDate], columns[ReceiptID], columns[OrderNumber],
                columns[SaleType]});
        sales.trace.append(line);
        return true;
    });
    // The receipt an item's walk read last is the one its carried texts hold.
    for (ItemWalk &walk : m_items)
        walk.sales.lastReceipt = walk.columns[ReceiptID].toByteArray();
}

const ItemSales &SpanSales::of(const QByteArray &name) const
{
    static const ItemSales nothing;
    const auto found = m_items.constFind(name);
    return found == m_items.constEnd() ? nothing : found->sales;
}

} // namespace qlon

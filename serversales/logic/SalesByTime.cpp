#include "serversales/logic/SalesByTime.h"

#include "core/DateText.h"

namespace qlon {

SalesByTime BreakDownSpan(SalesStore &store, const SalesSpan &span, const QSet<QByteArray> &items)
{
    SalesByTime sales;
    // The span's own walk tells which rows count and what each adds; a counted row's date and
    // time are readable, or the span's filter would have left it out.
    SpanSales(store, span, [&](const QByteArray &item, QByteArrayView orderDate, QByteArrayView time, double amount) {
        if (!items.contains(item))
            return;
        const std::optional<QDate> date = ToDate(orderDate);
        std::optional<QTime> clock = ReadLongTime(time);
        if (!clock)
            clock = ToTime(time);
        if (!date || !clock)
            return;
        sales.byHour[std::size_t(clock->hour())] += amount;
        sales.byDay[*date] += amount;
    });
    return sales;
}

} // namespace qlon

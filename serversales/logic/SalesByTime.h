#pragma once

#include "serversales/logic/SpanSales.h"

#include <QMap>
#include <QSet>

#include <array>

namespace qlon {

// The sales of a span by hour of the day and by day, for the items named: the rows and amounts
// Calculate Sales counts for them, for the charts of the main list.
struct SalesByTime
{
    std::array<double, 24> byHour{};
    QMap<QDate, double> byDay;
};

SalesByTime BreakDownSpan(SalesStore &store, const SalesSpan &span, const QSet<QByteArray> &items);

} // namespace qlon

#pragma once

#include "web/logic/ReportForm.h"
#include "web/logic/SvgChart.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace qlon::web {

// The column a result table is sorted by, from the page's `sort` and `order` fields.
struct TableSort
{
    QString column; // empty: the report's own order
    bool descending = false;
};
TableSort ReadSort(const FormFields &fields);

// The sales of a run by hour of the day (24 bars) and by day over its span, from its sales'
// `date` (M/D/YYYY) and `time` (6:05:00 PM) and `price`; rows without a readable date or time are
// left out.
struct SalesBreakdown
{
    QList<ChartBar> byHour;
    QList<ChartBar> byDay;
};
SalesBreakdown BreakDownSales(const QJsonArray &sales);
// The charts' bars of a report: the main report's own `byHour` and `byDay`, or those of its sales.
SalesBreakdown SalesBreakdownOf(const QJsonObject &report);

// The result of `qlon report --format json` as HTML: what the run met, its tables with their
// totals, sortable by any column through links on `pageQuery`, and its charts beside them.
QString ReportBody(const QJsonObject &report, const TableSort &sort, const QString &pageQuery);

} // namespace qlon::web

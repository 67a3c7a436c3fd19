#include "serversales/logic/WorkerSearches.h"

#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/Format.h"
#include "store/CarriedColumns.h"

namespace qlon {

namespace {

const SalesColumns searchedColumns = ColumnsOf({EmpNumber, OrderDate, Item, UnitPrice, ItemType});

QByteArray searchedKey(const QByteArray &key)
{
    return key.isEmpty() ? QByteArrayLiteral("1000") : key;
}

// From the first row: find, read the found row, move on, find again, to the end of the rows.
template<typename Visit>
void visitFound(
    SalesRecordset &recordset, SalesColumn column, const QByteArray &pattern, Visit &&visit, const std::function<void()> &movedOn = {})
{
    CarriedColumns columns;
    recordset.moveFirst();
    for (recordset.find(column, pattern); !recordset.atEnd(); recordset.find(column, pattern)) {
        columns.take(recordset.row(recordset.current()), searchedColumns);
        visit(columns);
        recordset.moveNext();
        if (movedOn)
            movedOn();
    }
}

// Each test holds when one of its dates can't be read, which rejects the row.
bool outsideDays(const std::optional<QDate> &date, const std::optional<QDate> &from, const std::optional<QDate> &to)
{
    if (!date || !from || !to)
        return HoldsUnlessFailed(std::nullopt);
    return *date < *from || *date > *to;
}

QByteArray zeroFilled(const QByteArray &text)
{
    return ("0000000000" + text).right(10);
}

} // namespace

ItemCount CountItemRows(
    SalesRecordset &recordset, ItemMatch match, const QByteArray &key, const QByteArray &fromDate, const QByteArray &toDate)
{
    const QByteArray item = searchedKey(key);
    const bool exact = match == ItemMatch::Exact;
    const QByteArray pricePattern = exact ? "#####.##" : "########.##";
    const std::optional<QDate> from = ToDate(fromDate);
    const std::optional<QDate> to = ToDate(toDate);
    ItemCount count;
    visitFound(recordset, Item, exact ? item : '*' + item + '*', [&](const CarriedColumns &columns) {
        if (outsideDays(ToDate(columns[OrderDate]), from, to))
            return;
        count.sum += FormattedValue(columns[UnitPrice], pricePattern);
        ++count.rows;
    });
    return count;
}

QByteArray ItemSearchRow(const QByteArray &key, const QByteArray &type, const QByteArray &price, const ItemCount &count)
{
    QByteArray total = Format(count.sum, "#########.##");
    QByteArray money;
    if (total.isEmpty())
        total = "$0";
    else
        AssignUnlessFailed(money, Currency(total)); // a sum of 0 formats as ".", which has no money form
    const QByteArray rows = QByteArray::number(count.rows);
    return key + '|' + type + '|' + price + '|' + rows + '|' + money + '|' + zeroFilled(rows) + '|' + zeroFilled(total) + '|' + total;
}

DaySales SearchServerDay(SalesRecordset &recordset, const QByteArray &key, const QByteArray &date, const DayVisits &visits)
{
    const std::optional<QDate> day = ToDate(date);
    DaySales sales;
    const auto visit = [&](const CarriedColumns &columns) {
        const std::optional<QDate> sold = ToDate(columns[OrderDate]);
        if (!sold || !day || *sold != *day)
            return;
        const double price = FormattedValue(columns[UnitPrice], "########.##");
        sales.total += price;
        // Only the type "L" itself: deliberately unlike the server screen's liquor test.
        if (columns[ItemType] == "L")
            sales.liquor += price;
        sales.rows.append(SearchedRowLine(columns));
        if (visits.accepted)
            visits.accepted(sales.rows.last());
    };
    const auto movedOn = [&] {
        if (visits.movedOn)
            visits.movedOn(sales);
    };
    visitFound(recordset, EmpNumber, '*' + searchedKey(key) + '*', visit, movedOn);
    return sales;
}

} // namespace qlon

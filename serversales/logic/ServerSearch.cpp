#include "serversales/logic/ServerSearch.h"

#include "core/Conversions.h"
#include "core/Format.h"
#include "core/Memo.h"

namespace qlon {
namespace {

bool isLiquor(QByteArrayView type)
{
    return type.startsWith('L') || type.startsWith("Beer") || type.startsWith("Wine");
}

// Adds to the department of the type. A bound past the table's last row reaches nothing there,
// since every statement on a row out of range is passed over.
void tally(CategoryValues &table, int bound, QByteArrayView type, double volume, double units)
{
    for (int row = 1; row <= bound && row < CategoryValues::rowCount; ++row) {
        if (table.at(row, 1) != type)
            continue;
        table.at(row, 2) = PlainNumber(NumericValue(table.at(row, 2)) + volume);
        table.at(row, 3) = PlainNumber(NumericValue(table.at(row, 3)) + units);
        return;
    }
}

} // namespace

ServerSales SearchServerSales(SalesStore &store, const SalesRowsMark &loaded, const ServerSearch &search, CategoryValues &table)
{
    SpanFilter filter(search.span);
    CarriedColumns columns;
    // The price of the last row in the span, rounded, and each distinct price's: rows repeat them.
    double roundedPrice = 0;
    Memo<QByteArray, double> roundedPrices;
    ServerSales found;
    store.SelectLike(loaded, EmpNumber, '*' + search.server + '*', ServerSearchColumns, [&](const SalesRow &row) {
        found.visitedAny = true;
        columns.take(row, ServerSearchColumns);
        if (filter.contains(columns[OrderDate], columns[Time])) {
            const QByteArrayView unitPrice = columns[UnitPrice];
            roundedPrice = roundedPrices.get(unitPrice, [unitPrice] { return NumericValue(FormattedText(unitPrice, "#####.##")); });
            found.totalSales += roundedPrice;
            if (isLiquor(columns[ItemType]))
                found.liquorSales += roundedPrice;
            found.accepted.push_back({columns[EmpNumber].toByteArray(), columns[OrderDate].toByteArray(), columns[Item].toByteArray(),
                columns[UnitPrice].toByteArray(), columns[ItemType].toByteArray(), columns[Time].toByteArray()});
        }
        // Deliberately for every visited row: a row outside the span adds the price of the last
        // row in it.
        tally(table, search.departmentBound, columns[ItemType], roundedPrice, NumericValue(columns[Quantity]));
        return true;
    });
    return found;
}

} // namespace qlon

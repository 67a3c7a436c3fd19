#pragma once

#include "serversales/logic/SpanSales.h"
#include "store/ProgramGlobals.h"

#include <QByteArrayList>

#include <vector>

namespace qlon {

// One search of a server's sales: the server text (trimmed), the span as the screen's four boxes
// read, and the upper bound of the department walk.
struct ServerSearch
{
    QByteArray server;
    SalesSpan span;
    int departmentBound = 0;
};

// What a search found.
struct ServerSales
{
    // The rows in the span, in the order found: EmpNumber, OrderDate, Item, UnitPrice, ItemType
    // and Time, trimmed.
    std::vector<QByteArrayList> accepted;
    double totalSales = 0;
    double liquorSales = 0;
    bool visitedAny = false; // whether any row of the server was found, in the span or not
};

// The columns of the sales rows that a server search reads.
inline const SalesColumns ServerSearchColumns = ColumnsOf({EmpNumber, OrderDate, Item, UnitPrice, ItemType, Time, Quantity});

// The search over the rows of the full select within the mark, the rows of the screen's load, in
// table order: every row whose EmpNumber is LIKE "*server*" is visited. A null value keeps the
// text of the visited row before. A row in the span adds its price, rounded to cents but never
// times the quantity, to the total, and to the liquor sales when its type begins with "L", "Beer"
// or "Wine". Every visited row, in the span or not, adds the rounded price of the last row in the
// span (0 before the first) and its own quantity to the first row of the table, from 1 to the
// bound, whose department name (column 1) is its type.
ServerSales SearchServerSales(SalesStore &store, const SalesRowsMark &loaded, const ServerSearch &search, CategoryValues &table);

} // namespace qlon

#pragma once

#include "serversales/logic/SalesRecordset.h"

#include <QByteArrayList>

#include <functional>

namespace qlon {

// The searches of the hidden worker over its recordset. Each moves to the first row and finds
// row after row with LIKE; a null value keeps the text of the row found before. An empty key
// searches for "1000".

// How an item search compares the item's name with the key.
enum class ItemMatch {
    Exact, // "[Item] LIKE 'key'", prices rounded by "#####.##"
    Containing, // "[Item] LIKE '*key*'", prices rounded by "########.##"
};

// What an item search counted: each row dated within the span counts 1, whatever its quantity.
struct ItemCount
{
    int rows = 0;
    double sum = 0;
};

// The item's rows whose date lies from the from date to the to date, both included; a date that
// can't be read rejects the row.
ItemCount CountItemRows(
    SalesRecordset &recordset, ItemMatch match, const QByteArray &key, const QByteArray &fromDate, const QByteArray &toDate);

// The main list's row for the count: "key|type|price|rows|money|rows key|sum key|sum", the keys
// filled with zeros on the left to ten characters, losing their left end when longer.
QByteArray ItemSearchRow(const QByteArray &key, const QByteArray &type, const QByteArray &price, const ItemCount &count);

// One day of a server's sales.
struct DaySales
{
    QByteArrayList rows; // "EmpNumber,OrderDate,Item,UnitPrice,ItemType" of each row of the day
    double total = 0;
    double liquor = 0; // the rows whose type is exactly "L"
};

// What a screen is told while a server's day is searched.
struct DayVisits
{
    std::function<void(const QByteArray &row)> accepted; // a row of the day, before the move past it
    std::function<void(const DaySales &)> movedOn; // after the move past each row found, on the date or not
};

// The rows of the servers whose number contains the key, on the one date.
DaySales SearchServerDay(SalesRecordset &recordset, const QByteArray &key, const QByteArray &date, const DayVisits &visits = {});

} // namespace qlon

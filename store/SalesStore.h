#pragma once

#include "core/RuntimeError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <QTime>

#include <array>
#include <bitset>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>

namespace qlon {

// The columns of the table ItemsSold, in the order of the full select.
enum SalesColumn {
    OrderID,
    OrderDate,
    ReceiptID,
    Quantity,
    Item,
    ItemType,
    UnitPrice,
    Time,
    SaleType,
    OrderNumber,
    POSstation,
    EmpNumber,
    TableNumber,
    SalesColumnCount
};

inline constexpr QByteArrayView SalesTableName{"ItemsSold"};
// The column names, in the order of the enumeration.
inline constexpr std::array<QByteArrayView, SalesColumnCount> SalesColumnNames{"OrderID", "OrderDate", "ReceiptID", "Quantity", "Item",
    "ItemType", "UnitPrice", "Time", "SaleType", "OrderNumber", "POSstation", "EmpNumber", "TableNumber"};

// A choice among the table's columns.
using SalesColumns = std::bitset<SalesColumnCount>;
inline constexpr SalesColumns EverySalesColumn{(1U << SalesColumnCount) - 1};

inline SalesColumns ColumnsOf(std::initializer_list<SalesColumn> columns)
{
    SalesColumns chosen;
    for (SalesColumn column : columns)
        chosen.set(column);
    return chosen;
}

// A value of a row as text, the way the old platform turned values into text: a date as
// "3/31/2004", a time of day as "6:05:00 PM", a date with a time as both ("3/31/2004 6:05:00 PM"),
// a number in its shortest decimal form ("12.5"), a text as it stands (Windows-1252 bytes).
// A null stays distinct from the empty text.
using SalesValue = std::optional<QByteArray>;
using SalesRow = std::array<SalesValue, SalesColumnCount>;

// Copies the bytes into the value, reusing its buffer when nobody else holds a copy of it, as an
// engine filling the same row again and again does.
void AssignValue(SalesValue &value, QByteArrayView bytes);

// Called for each row, in table order; returning false stops the walk.
using SalesVisitor = std::function<bool(const SalesRow &)>;

// The rows a table holds at a moment, told without reading them: the rows added later lie past
// the mark.
struct SalesRowsMark
{
    bool empty = true;
    qint64 last = 0; // the store's own number for the last of the rows, or their count
};

// The sales table of data\Quillon.mdb, read only. It answers the two queries the program sends:
// the full select, and the select of a span of dates.
class SalesStore
{
public:
    virtual ~SalesStore() = default;

    // "select OrderID,...,TableNumber from ItemsSold"
    virtual void SelectAll(const SalesVisitor &visit) = 0;

    // "SELECT * FROM ItemsSold WHERE OrderDate BETWEEN #from# AND #to#", the two dates as the
    // screen's texts stand. Both ends are inclusive and compared as date-time values, so a sale
    // at 6 PM on the to date lies after "#to#", which is midnight. A date text that can't be read
    // raises the engine's error. Only the chosen columns are read; the others come out null.
    virtual void SelectSpan(QByteArrayView from, QByteArrayView to, SalesColumns columns, const SalesVisitor &visit) = 0;

    // How many rows the table holds now, without reading them.
    virtual qint64 CountRows() = 0;

    // Marks the rows the table holds now. Unless a store knows better, by their count.
    virtual SalesRowsMark MarkRows();
    // The full select of the rows within the mark. Unless a store knows better, the first rows, as
    // many as the mark counts.
    virtual void SelectMarked(const SalesRowsMark &mark, const SalesVisitor &visit);
    // The rows of the full select within the mark whose column is LIKE the pattern, in table order,
    // as MatchesLike compares them, a null matching nothing. At least the chosen columns are read.
    virtual void SelectLike(
        const SalesRowsMark &mark, SalesColumn column, QByteArrayView pattern, SalesColumns columns, const SalesVisitor &visit);
};

// Opens the database at the host path: a Jet 3 or 4 file (what the sites have) or an SQLite 3
// file, told apart by their signatures. A file that is neither, or can't be opened, raises the
// engine's error, which names the file as `shownPath` when given (the site's own path).
std::unique_ptr<SalesStore> OpenSalesStore(const QString &hostPath, const QString &shownPath = {});

// The site's sales database, below the data root or, in one place, the site root.
inline const QByteArray SalesDatabaseFile = QByteArrayLiteral("data\\Quillon.mdb");
// Opens the database at a site path, such as "C:\Quillon\data\Quillon.mdb", its errors naming it.
std::unique_ptr<SalesStore> OpenSiteSalesStore(const QByteArray &sitePath);

// What the engines share.

// Day zero of the platform's date-time values, 12/30/1899.
inline constexpr QDate DayZero = QDate::fromJulianDay(2415019);

// A date-time value as the platform writes it: the date alone at midnight ("3/31/2004"), the time
// alone on day zero, 12/30/1899 ("6:05:00 PM", and "12:00:00 AM" for day zero itself), else both.
QByteArray DateTimeText(QDate date, QTime time);

// A floating number in the shortest form that reads back as the same number of its type: "12.5",
// "3", and "0.1" for the single nearest to 0.1; from 1E+15 up and below 1E-05 in the form "1E+15".
QByteArray NumberText(double value);
QByteArray NumberText(float value);

// The dates of a span select, read from the screen's texts by the system's date rules.
struct DateSpan
{
    QDate from;
    QDate to;
};
// Raises the engine's syntax error when either text is no date.
DateSpan ReadDateSpan(QByteArrayView from, QByteArrayView to);

// An error of the engine under its code of general failure, with the engine's text.
RuntimeError EngineError(const QString &description, const QString &hostPath);
// The first bytes of a database file, or none when it can't be opened within a station's wait.
std::optional<QByteArray> DatabaseHeader(const QString &hostPath, qint64 size);

// The engine's error for a file that is no database of a kind it knows.
RuntimeError UnrecognizedFormatError(const QString &hostPath);
// The engine's error for a table or query that the database lacks.
RuntimeError MissingTableError(QByteArrayView table, const QString &hostPath);

// The errors of a station's file that can't be read now but can be later: one a station holds past
// the program's wait, and one that kept changing under a read. No region that passes over failures
// passes over them.
RuntimeError StationHeldError(const QString &description, const QString &hostPath);
RuntimeError ExclusivelyOpenedError(const QString &shownPath, const QString &hostPath);
RuntimeError ChangedWhileReadError(const QString &hostPath);

} // namespace qlon

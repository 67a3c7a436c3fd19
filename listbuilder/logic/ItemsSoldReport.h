#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QString>

#include <array>
#include <functional>

namespace qlon {

class ListRows;
class SalesStore;
class TextFile;

// One item of a printed line: units, name and volume; all blank for an item without a name.
struct PrintedItem
{
    QByteArray units;
    QByteArray name;
    QByteArray volume;
};

// The calculated list as it prints: three items across, then the grand total of the items'
// volumes (run rows and blank rows count for nothing).
struct PrintedList
{
    // The last line holds what is left over, one or two items or none, and prints all the same.
    QList<std::array<PrintedItem, 3>> lines;
    double grandTotal = 0;
};

PrintedList ItemsSoldPrintLayout(const ListRows &list);

// Adds an item's sales and units to the sums of its department, kept as texts row for row beside
// the departments. A department past the rows adds nothing to either.
void AddToDepartment(ListRows &sales, ListRows &units, int department, double addedSales, double addedUnits);

// The total rows that close a run, one for each department name that isn't empty, from the
// sums of the department's sales and units kept row for row beside the departments.
QByteArrayList DepartmentTotalRows(const ListRows &sales, const ListRows &units, const QByteArrayList &departments);

// Removes the rows whose units sold read as 0, walking the row numbers as the list stood, telling
// `visiting` of each number before it is looked at, with the number of rows the list then holds.
void RemoveRowsWithoutUnits(ListRows &list, const std::function<void(int row, int rowCount)> &visiting);

// Writes every sale of the span that the dump keeps to `dump`: from the from date on, and on the
// to date up to the end time.
void DumpSpanSales(SalesStore &store, const QByteArray &from, const QByteArray &to, const QByteArray &endTime, TextFile &dump);

} // namespace qlon

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

namespace qlon {

// The report's rows that the department filter keeps, by their place in the list it was given,
// and their total.
struct DepartmentRows
{
    QList<int> kept;
    double total = 0;
};

// The rows of the department (trimmed, case respected; "" or "All" keeps all) among the report
// as the scan left it. A row of fewer fields, such as the gift row, keeps the fields of the row
// before. The total takes each amount through "###,###,###.##" and its numeric value, which stops
// at the first comma: $1,234.50 counts as 1. Required, and kept so.
DepartmentRows RowsOfDepartment(const QByteArrayList &rows, const QByteArray &selection);

} // namespace qlon

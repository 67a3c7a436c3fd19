#include "store/CarriedColumns.h"

#include "core/FixedField.h"

namespace qlon {

void CarriedColumns::take(const SalesRow &row, SalesColumns columns)
{
    for (int column = 0; column < SalesColumnCount; ++column) {
        if (columns.test(column) && row[column])
            AssignTrimmed(m_texts[column], *row[column]);
    }
}

QByteArrayList DumpLine(CarriedColumns &columns)
{
    if (columns[ItemType] != "L")
        columns[ItemType] = "Food";
    return {columns[OrderDate], columns[Quantity], columns[Item], columns[UnitPrice], columns[ItemType], columns[Time],
        columns[TableNumber], columns[EmpNumber] + " - " + columns[SaleType]};
}

} // namespace qlon

#pragma once

#include "store/SalesStore.h"

#include <QByteArrayList>

namespace qlon {

// The trimmed texts of the last row read, as a walk over the rows keeps them: a column that is
// null keeps the text that stood before, since the old walk passed over the failing read. The
// texts are copied into buffers of their own, which the next rows reuse.
class CarriedColumns
{
public:
    void take(const SalesRow &row, SalesColumns columns);
    const QByteArray &operator[](SalesColumn column) const { return m_texts[column]; }
    QByteArray &operator[](SalesColumn column) { return m_texts[column]; }

private:
    std::array<QByteArray, SalesColumnCount> m_texts;
};

// The columns a line of the sales dumps is made of.
inline const SalesColumns DumpColumns = ColumnsOf({EmpNumber, OrderDate, Item, UnitPrice, ItemType, Quantity, Time, TableNumber, SaleType});

// The line of the sales dumps: eight fields, the type "Food" unless it is liquor, and the
// server joined ahead of the kind of sale. It changes the carried type as the dumps did.
QByteArrayList DumpLine(CarriedColumns &columns);

} // namespace qlon

#pragma once

#include "store/SalesStore.h"

#include <QByteArrayList>

#include <string>

namespace qlon {

// The trimmed texts of the last row read, as a walk over the rows keeps them: a column that is
// null keeps the text that stood before, since the old walk passed over the failing read. The
// texts lie side by side in one buffer, which the next rows reuse: a walk that keeps them for
// each of many items touches a cache line or two of them per row, not a buffer per column.
class CarriedColumns
{
public:
    void take(const SalesRow &row, SalesColumns columns);
    // The column's text, good until the texts next change.
    QByteArrayView operator[](SalesColumn column) const
    {
        return QByteArrayView(m_texts.data() + m_starts[column], m_starts[column + 1] - m_starts[column]);
    }
    // The text that a row with this value in the column leaves.
    void take(SalesColumn column, QByteArrayView text);

private:
    // Writes each column's new text behind the texts in hand, then drops those.
    template<typename NewText>
    void replaceTexts(NewText &&newText);

    std::string m_texts;
    std::array<qsizetype, SalesColumnCount + 1> m_starts{}; // the end of the texts last
};

// The columns a line of the sales dumps is made of.
inline const SalesColumns DumpColumns = ColumnsOf({EmpNumber, OrderDate, Item, UnitPrice, ItemType, Quantity, Time, TableNumber, SaleType});

// The line of the sales dumps: eight fields, the type "Food" unless it is liquor, and the
// server joined ahead of the kind of sale. It changes the carried type as the dumps did.
QByteArrayList DumpLine(CarriedColumns &columns);

// The line the searches list for a sales row: server, date, item, price and type, by commas.
QByteArray SearchedRowLine(const CarriedColumns &columns);

} // namespace qlon

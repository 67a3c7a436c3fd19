#include "serversales/logic/ServerSearchRows.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// A value of any kind a store hands out: none, an empty text, a short text of any bytes, or
// texts about the length at which the compact rows keep a length of its own.
SalesValue anyValue(QRandomGenerator &random)
{
    switch (random.bounded(6)) {
    case 0: return std::nullopt;
    case 1: return QByteArray();
    case 2: return QByteArray(250 + random.bounded(10), char(random.bounded(256)));
    default: return QByteArray::number(random.bounded(100000)) + char(random.bounded(256));
    }
}

SalesRow searchedColumnsOf(const SalesRow &row)
{
    SalesRow kept;
    for (int column = 0; column < SalesColumnCount; ++column) {
        if (ServerSearchColumns.test(column))
            kept[column] = row[column];
    }
    return kept;
}

// What the search reads of the compact rows is what it read of the full recordset's rows.
TEST(ServerSearchRowsTest, EveryRowComesBackAsTheSearchReadItFromTheFullRecordset)
{
    QRandomGenerator random(11);
    std::vector<SalesRow> full(3000);
    for (SalesRow &row : full) {
        for (SalesValue &value : row)
            value = anyValue(random);
    }
    full[1234][Item] = QByteArray(100000, 'x'); // a row longer than a block of the compact rows

    const ServerSearchRows compact(full);
    ASSERT_EQ(compact.size(), full.size());
    for (std::size_t index = 0; index < full.size(); ++index) {
        const SalesRow expected = searchedColumnsOf(full[index]);
        ASSERT_TRUE(compact.row(index) == expected) << "row " << index;
        const std::optional<QByteArrayView> employee = compact.value(index, EmpNumber);
        const std::optional<QByteArrayView> expectedEmployee = expected[EmpNumber];
        ASSERT_TRUE(employee == expectedEmployee) << "row " << index;
    }
}

} // namespace
} // namespace qlon

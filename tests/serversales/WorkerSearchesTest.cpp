#include "serversales/logic/WorkerSearches.h"
#include "tests/support/Rows.h"
#include "tests/support/RowsStore.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::ErrorOf;

SalesRow sale(const char *server, const char *date, const char *item, const char *type, const char *price, const char *quantity = "1")
{
    SalesRow row;
    const std::pair<SalesColumn, const char *> values[] = {
        {EmpNumber, server}, {OrderDate, date}, {Item, item}, {ItemType, type}, {UnitPrice, price}, {Quantity, quantity}};
    for (const auto &[column, text] : values) {
        if (text)
            row[column] = text;
    }
    return row;
}

class WorkerSearchesTest : public ::testing::Test
{
protected:
    void open(std::vector<SalesRow> rows)
    {
        table = std::move(rows);
        recordset.open([this] { return std::make_unique<test::RowsStore>(table); });
    }

    QByteArrayList items()
    {
        QByteArrayList names;
        for (int index = 0; index < recordset.count(); ++index)
            names.append(recordset.row(index)[Item].value_or("(null)"));
        return names;
    }

    std::vector<SalesRow> table; // the table as the stations keep it
    SalesRecordset recordset;
};

TEST_F(WorkerSearchesTest, RecordsetKeepsTheRowsOfItsOpeningAndItsChangesInMemory)
{
    EXPECT_EQ(ErrorOf([&] { recordset.refresh(); }).number(), RuntimeError::ObjectClosed);
    // A database that can't be opened leaves the recordset closed, and a refresh tries it again.
    bool reachable = false;
    int connections = 0;
    const auto connect = [&] {
        ++connections;
        if (!reachable)
            throw RuntimeError(RuntimeError::FileNotFound);
        return std::make_unique<test::RowsStore>(table);
    };
    EXPECT_EQ(ErrorOf([&] { recordset.open(connect); }).number(), RuntimeError::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { recordset.count(); }).number(), RuntimeError::ObjectClosed);
    table = {sale("1", "1/1/2004", "A", "F", "1"), sale("1", "1/1/2004", "B", "F", "1"), sale("1", "1/1/2004", "C", "F", "1")};
    reachable = true;
    recordset.refresh();
    // The opening marks the rows and fetches none: the first row's place needs no fetch.
    recordset.moveFirst();
    EXPECT_EQ(recordset.absolutePosition(), 1);
    EXPECT_EQ(connections, 2);
    int moves = 0;
    recordset.onMove([&] { ++moves; });
    table.push_back(sale("1", "1/1/2004", "Added later", "F", "1"));
    EXPECT_EQ(items(), QByteArrayList({"A", "B", "C"}));

    recordset.moveLast();
    EXPECT_EQ(recordset.absolutePosition(), 3);
    recordset.moveNext();
    EXPECT_EQ(recordset.absolutePosition(), SalesRecordset::PositionAtEnd);
    EXPECT_EQ(ErrorOf([&] { recordset.deleteCurrent(); }).number(), RuntimeError::NoCurrentRecord);
    EXPECT_EQ(moves, 2);
    // Moves held during a change are told after it, one call each.
    recordset.withMovesHeld([&] {
        recordset.moveFirst();
        recordset.moveLast();
        EXPECT_EQ(moves, 2);
    });
    EXPECT_EQ(moves, 4);

    // Deleting the last row leaves the recordset on the new last row; deleting another, on the next.
    recordset.moveLast();
    recordset.deleteCurrent();
    EXPECT_EQ(recordset.absolutePosition(), 2);
    recordset.moveFirst();
    recordset.deleteCurrent();
    EXPECT_EQ(items(), QByteArrayList({"B"}));
    EXPECT_EQ(recordset.absolutePosition(), 1);
    recordset.addNew();
    recordset.setValue(1, Item, QByteArray("New"));
    EXPECT_EQ(items(), QByteArrayList({"B", "New"}));
    EXPECT_EQ(recordset.absolutePosition(), 2);

    const RuntimeError refused = ErrorOf([&] { recordset.updateBatch(); });
    EXPECT_EQ(refused.description(), QStringLiteral("Cannot update. Database or object is read-only."));
    EXPECT_EQ(items(), QByteArrayList({"B", "New"}));

    recordset.refresh();
    EXPECT_EQ(items(), QByteArrayList({"A", "B", "C", "Added later"}));
}

TEST_F(WorkerSearchesTest, ItemSearchesFindTheNameExactlyOrContainedAndCountRowsOfTheSpan)
{
    open({sale("1", "1/1/2004", "Burger", "Food", "12.254", "3"), sale("1", "1/1/2004", "Burger Deluxe", "Food", "20"),
        sale("2", "12/31/2003", "burger", "Food", "5"), sale("2", "1/2/2004 11:59:00 PM", "BURGER", "Food", "1.5"),
        sale("2", "1/3/2004", "Burger", "Food", "100"), sale("2", "no date", "Burger", "Food", "100"),
        sale("3", "1/1/2004", nullptr, "Food", "0.5")});
    // The old engine's LIKE ignores case; a row without a name is never found.
    const ItemCount exact = CountItemRows(recordset, ItemMatch::Exact, "Burger", "1/1/2004", "1/2/2004");
    EXPECT_EQ(exact.rows, 2);
    EXPECT_DOUBLE_EQ(exact.sum, 12.25 + 1.5);
    EXPECT_TRUE(recordset.atEnd());
    const ItemCount containing = CountItemRows(recordset, ItemMatch::Containing, "Burger", "1/1/2004", "1/2/2004");
    EXPECT_EQ(containing.rows, 3);
    EXPECT_DOUBLE_EQ(containing.sum, 12.25 + 20 + 1.5);
    // An empty key looks for "1000"; a span date that can't be read rejects every row.
    EXPECT_EQ(CountItemRows(recordset, ItemMatch::Containing, "", "1/1/2004", "1/2/2004").rows, 0);
    EXPECT_EQ(CountItemRows(recordset, ItemMatch::Containing, "Burger", "1/1/2004", "soon").rows, 0);
}

TEST_F(WorkerSearchesTest, ItemRowFillsItsKeysWithZerosOnTheLeft)
{
    EXPECT_EQ(ItemSearchRow("Burger", "Food", "4.50", {12, 12.5}), "Burger|Food|4.50|12|$12.50|0000000012|00000012.5|12.5");
    // No sum has no money text; a long sum loses the left end of its key.
    EXPECT_EQ(ItemSearchRow("", "Food", "", {0, 0}), "|Food||0||0000000000|000000000.|.");
    EXPECT_EQ(ItemSearchRow("X", "", "", {3, 12345678.25}), "X|||3|$12,345,678.25|0000000003|2345678.25|12345678.25");
}

TEST_F(WorkerSearchesTest, ServerDaySearchTakesOneDateAndOnlyTheTypeLAsLiquor)
{
    open({sale("1000", "1/22/2005", "Rum", "L", "6"), sale("21000", "1/22/2005 8:00:00 PM", "Ale", "Beer", "4.255"),
        sale("1000", "1/23/2005", "Gin", "L", "7"), sale("1000", "1/22/2005", "Vodka", "Liquor", "5"),
        sale("1001", "1/22/2005", "Soup", "Food", "3"), sale("1000", "1/22/2005", nullptr, nullptr, "2")});
    // A row of the day is told before the move past it, the sums after it.
    std::vector<int> acceptedAt;
    std::vector<std::pair<int, qsizetype>> movedOn;
    const DaySales sales = SearchServerDay(recordset, "", "01/22/2005",
        {[&](const QByteArray &) { acceptedAt.push_back(recordset.current()); },
            [&](const DaySales &sofar) { movedOn.emplace_back(recordset.current(), sofar.rows.size()); }});
    EXPECT_EQ(sales.rows,
        QByteArrayList({"1000,1/22/2005,Rum,6,L", "21000,1/22/2005 8:00:00 PM,Ale,4.255,Beer", "1000,1/22/2005,Vodka,5,Liquor",
            "1000,1/22/2005,Vodka,2,Liquor"}));
    EXPECT_DOUBLE_EQ(sales.total, 6 + 4.26 + 5 + 2);
    EXPECT_DOUBLE_EQ(sales.liquor, 6);
    EXPECT_EQ(acceptedAt, (std::vector<int>{0, 1, 3, 5}));
    EXPECT_EQ(movedOn, (std::vector<std::pair<int, qsizetype>>{{1, 1}, {2, 2}, {3, 2}, {4, 3}, {6, 4}}));
    EXPECT_TRUE(SearchServerDay(recordset, "1000", "not a date").rows.isEmpty());
}

} // namespace
} // namespace qlon

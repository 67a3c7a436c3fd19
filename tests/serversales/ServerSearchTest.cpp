#include "serversales/logic/ServerSearch.h"
#include "tests/support/RowsStore.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

SalesRow sale(const char *server, const char *date, const char *time, const char *item, const char *type, const char *price,
    const char *quantity = "1")
{
    SalesRow row;
    const std::pair<SalesColumn, const char *> values[] = {
        {EmpNumber, server}, {OrderDate, date}, {Time, time}, {Item, item}, {ItemType, type}, {UnitPrice, price}, {Quantity, quantity}};
    for (const auto &[column, text] : values) {
        if (text)
            row[column] = text;
    }
    return row;
}

class ServerSearchTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // Entry 0 of the department list has no row, deliberately; row 4 is the empty one past the list.
        const QByteArray departments[] = {"Food", "Liquor", "Beer Draft", "Wine"};
        for (int row = 1; row < 4; ++row) {
            table.at(row, 1) = departments[row];
            table.at(row, 2) = "0";
            table.at(row, 3) = "0";
        }
    }

    ServerSales search(const QByteArray &server, const std::vector<SalesRow> &rows)
    {
        return searchSpan({server, {"1/1/2004", "1/2/2004", "6:00 PM", "2:00 AM"}, 4}, rows);
    }

    ServerSales searchSpan(const ServerSearch &search, const std::vector<SalesRow> &rows)
    {
        test::RowsStore store(rows);
        return SearchServerSales(store, store.MarkRows(), search, table);
    }

    QByteArrayList tally(int row) { return {table.at(row, 2), table.at(row, 3)}; }

    CategoryValues table;
};

TEST_F(ServerSearchTest, FindsTheServerAnywhereInTheNumberAndCountsLiquorByItsType)
{
    const std::vector<SalesRow> rows = {
        sale("1000", "1/1/2004", "7:00:00 PM", "Lager", "Beer Draft", "4.5"),
        sale("2100", "1/1/2004", "8:00:00 PM", "Merlot", "Wine", "9.254"),
        sale("3000", "1/1/2004", "8:00:00 PM", "Burger", "Food", "99"),
        sale("1010", "1/2/2004", "1:00:00 AM", "Rum", "Liquor", "6"),
        sale("1001", "1/2/2004", "1:30:00 AM", "Pils", "beer", "3", "2"),
        sale("1002", "1/2/2004", "1:45:00 AM", "Water", "Food", "0"),
    };
    const ServerSales sales = search("10", rows);
    ASSERT_EQ(sales.accepted.size(), 5u);
    EXPECT_EQ(sales.accepted[1], (QByteArrayList{"2100", "1/1/2004", "Merlot", "9.254", "Wine", "8:00:00 PM"}));
    EXPECT_DOUBLE_EQ(sales.totalSales, 4.5 + 9.25 + 6 + 3 + 0);
    EXPECT_DOUBLE_EQ(sales.liquorSales, 4.5 + 9.25 + 6);
    EXPECT_EQ(tally(2), (QByteArrayList{"4.5", "1"}));
    EXPECT_EQ(tally(1), (QByteArrayList{"6", "1"}));
    EXPECT_EQ(tally(3), (QByteArrayList{"9.25", "1"}));
    // The server text is part of a LIKE pattern: "?" stands for any one character.
    const ServerSales wildcard = search("1?1", rows);
    ASSERT_EQ(wildcard.accepted.size(), 1u);
    EXPECT_EQ(wildcard.accepted[0][0], "1010");
    EXPECT_FALSE(search("4", rows).visitedAny);
    // Rows the table got after the screen's load are not seen.
    test::RowsStore grown(rows);
    const ServerSales loaded = SearchServerSales(grown, {false, 2}, {"10", {"1/1/2004", "1/2/2004", "6:00 PM", "2:00 AM"}, 4}, table);
    EXPECT_EQ(loaded.accepted.size(), 2u);
    EXPECT_TRUE(SearchServerSales(grown, {}, {"10", {"1/1/2004", "1/2/2004", "6:00 PM", "2:00 AM"}, 4}, table).accepted.empty());
}

TEST_F(ServerSearchTest, RowsOutsideTheSpanReachTheTallyWithTheLastPriceInIt)
{
    const std::vector<SalesRow> rows = {
        sale("1002", "1/1/2004", "5:00:00 PM", "Early", "Liquor", "7"), // before any row in the span: adds 0
        sale("1002", "1/1/2004", "7:00:00 PM", "Rum", "Liquor", "6"),
        sale("1002", "1/2/2004", "3:00:00 AM", "Late", "Liquor", "8", "3"), // adds the 6 again, with its own 3
        sale("1002", "1/1/2004", "9:00:00 PM", "Mystery", "Other", "5"), // no department: totals only
        sale("1002", "1/1/2004", "9:30:00 PM", "Plain", "", "2"), // the empty row past the list
        sale("1002", nullptr, nullptr, nullptr, "Liquor", nullptr), // nulls keep the row before
    };
    const ServerSales sales = search("1002", rows);
    ASSERT_EQ(sales.accepted.size(), 4u);
    EXPECT_EQ(sales.accepted[3], (QByteArrayList{"1002", "1/1/2004", "Plain", "2", "Liquor", "9:30:00 PM"}));
    EXPECT_DOUBLE_EQ(sales.totalSales, 6 + 5 + 2 + 2);
    EXPECT_EQ(tally(1), (QByteArrayList{"14", "6"}));
    EXPECT_EQ(table.at(4, 2), "2");
}

TEST_F(ServerSearchTest, ABadSpanTextRejectsEveryRow)
{
    const std::vector<SalesRow> rows = {
        sale("1002", "1/1/2004", "7:00:00 PM", "Rum", "Liquor", "6"), sale("1002", "1/2/2004", "bad", "Rum", "Liquor", "6")};
    EXPECT_EQ(search("1002", rows).accepted.size(), 1u);
    const ServerSales badSpan = searchSpan({"1002", {"1/1/2004", "1/2/2004", "6 o'clock", "2:00 AM"}, 4}, rows);
    EXPECT_TRUE(badSpan.accepted.empty());
    EXPECT_TRUE(badSpan.visitedAny);
}

} // namespace
} // namespace qlon

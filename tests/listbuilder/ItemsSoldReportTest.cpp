#include "listbuilder/logic/ItemsSoldReport.h"

#include "core/ListRows.h"
#include "tests/support/Printers.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::AddRows;
using test::TextsOf;

QByteArrayList names(const PrintedList &printed)
{
    QByteArrayList all;
    for (const auto &line : printed.lines) {
        for (const PrintedItem &item : line)
            all.append(item.name + '/' + item.units + '/' + item.volume);
    }
    return all;
}

TEST(ItemsSoldReportTest, PrintsThreeAcrossWithTheLeftOverLineAndTotalsOnlyItemRows)
{
    ListRows list;
    AddRows(list,
        {"Burger|Food|6.50|12|78.00|x", "Soda|Bev|1.50|2|3.00|x", "Pie|Food|3.00|1|3.25|x", "Cake|Food|2.00|1|2.00|x", "",
            "********************", "**Food|Total|14|14|$83.25|Q8$|Q9$|Q5$"});

    const PrintedList printed = ItemsSoldPrintLayout(list);

    ASSERT_EQ(printed.lines.size(), 3);
    EXPECT_EQ(names(printed),
        (QByteArrayList{"Burger/12/78.00", "Soda/2/3.00", "Pie/1/3.25",
            // Rows without a separator have no name: their place stays blank.
            "Cake/1/2.00", "//", "//", "**Food/14/$83.25", "//", "//"}));
    EXPECT_DOUBLE_EQ(printed.grandTotal, 86.25);

    ListRows three;
    AddRows(three, {"A|F|1|1|1.00|x", "B|F|1|1|1.00|x", "C|F|1|1|1.00|x"});
    EXPECT_EQ(ItemsSoldPrintLayout(three).lines.size(), 2) << "a full last line is followed by an empty one";
}

TEST(ItemsSoldReportTest, AFieldCountsOnlyWhereASeparatorClosesIt)
{
    ListRows list;
    AddRows(list, {"Burger|Food|6.50|12|78.00|x", "Soda|Bev|1.50|2|3.00", "Tea|Bev|1.00|5"});

    const PrintedList printed = ItemsSoldPrintLayout(list);

    EXPECT_EQ(names(printed).mid(0, 3), (QByteArrayList{"Burger/12/78.00", "Soda/2/78.00", "Tea/2/78.00"}));
    EXPECT_DOUBLE_EQ(printed.grandTotal, 78.0 * 3);
}

TEST(ItemsSoldReportTest, TotalRowsSkipEmptyNamesAndKeepTheSumsOfTheRowBeforePastTheEnd)
{
    ListRows sales;
    ListRows units;
    AddRows(sales, {"12.5", "0"});
    AddRows(units, {"3", "0"});

    EXPECT_EQ(DepartmentTotalRows(sales, units, {"Food", "", "Beer"}),
        (QByteArrayList{"**Food|Total|3|3|$12.50|Q8$|Q9$|Q5$", "**Beer|Total|0|0|$0.00|Q8$|Q9$|Q5$"}));
    EXPECT_EQ(DepartmentTotalRows(sales, units, {"Food", "Wine", "Beer"}).last(), "**Beer|Total|0|0|$0.00|Q8$|Q9$|Q5$");

    ListRows one;
    AddRows(one, {"7"});
    EXPECT_EQ(DepartmentTotalRows(one, one, {"Food", "Wine"}).last(), "**Wine|Total|7|7|$7.00|Q8$|Q9$|Q5$");
}

TEST(ItemsSoldReportTest, RemovingUnsoldRowsNeverLooksAtTheRowThatMovesUp)
{
    ListRows list;
    AddRows(list, {"Burger|Food|6.50|12|x", "Soda|Bev|1.50|0|x", "Tea|Bev|1.00|0|x", "Pie|Food|3.00|2|x", "Cake|Food|2|0|x"});
    QList<int> visited;

    RemoveRowsWithoutUnits(list, [&](int row, int) { visited.append(row); });

    EXPECT_EQ(TextsOf(list), (QByteArrayList{"Burger|Food|6.50|12|x", "Tea|Bev|1.00|0|x", "Pie|Food|3.00|2|x"}));
    EXPECT_EQ(visited, (QList<int>{0, 1, 2, 3, 4}));
}

TEST(ItemsSoldReportTest, ARowShortOfSeparatorsReadsItsUnitsWhereTheRowBeforeHadThem)
{
    ListRows list;
    AddRows(list, {"Burger|Food|6.50|12|x", "********************", "Soda|Bev|1.50|0|x", "Tea|Bev|1|3|x"});

    RemoveRowsWithoutUnits(list, [](int, int) {});

    EXPECT_EQ(TextsOf(list), (QByteArrayList{"Burger|Food|6.50|12|x", "Soda|Bev|1.50|0|x", "Tea|Bev|1|3|x"}))
        << "the separator row reads \"**\" between the places of Burger's bars, which counts 0; Soda moves up "
           "into its place and is never looked at";
}

} // namespace
} // namespace qlon

#include "serversales/logic/CalculatedItem.h"

#include "core/ListRows.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "tests/support/Printers.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

ItemSales sold(double sales, double units, const QByteArray &lastReceipt = "R100")
{
    ItemSales item;
    item.sales = sales;
    item.units = units;
    item.lastReceipt = lastReceipt;
    return item;
}

TEST(CalculatedItemTest, TheRowCarriesItsFiguresAndZeroFilledKeysThatLoseTheirLeftEnd)
{
    const CalculatedItem burger = CalculateItem(sold(12.5, 12), "Burger", "tag", "F", "6.50");
    EXPECT_EQ(burger.rowText, "Burger|F|6.50|12|$12.50|0000000012|00000012.5|12.5");
    EXPECT_EQ(burger.tempItemsLine, (QByteArrayList{"tag", "12", "12.5"}));
    EXPECT_DOUBLE_EQ(burger.sales, 12.5);

    EXPECT_EQ(CalculateItem(sold(123456789012.25, 1), "Big", "", "F", "1").rowText.split('|').at(6), "6789012.25")
        << "a volume of more than ten characters keeps its right end";
    const CalculatedItem unsold = CalculateItem(sold(0, 0, "R417"), "Soda", "", "B", "1.50");
    EXPECT_EQ(unsold.rowText, "Soda|B|1.50|0|R417|0000000000|000000000.|.") << "no sales: the last receipt read stands as the volume";
    EXPECT_DOUBLE_EQ(unsold.sales, 0);
}

TEST(CalculatedItemTest, DepartmentSumsAddAsTextsAndADepartmentPastTheRowsAddsNothing)
{
    ListRows sales;
    ListRows units;
    test::AddRows(sales, {"0", "1.5"});
    test::AddRows(units, {"0", "2"});
    AddToDepartment(sales, units, 1, 2.25, 3);
    AddToDepartment(sales, units, 5, 100, 100);
    EXPECT_EQ(test::TextsOf(sales), (QByteArrayList{"0", "3.75"}));
    EXPECT_EQ(test::TextsOf(units), (QByteArrayList{"0", "5"}));
}

} // namespace
} // namespace qlon

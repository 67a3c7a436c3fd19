#include "core/HostPath.h"
#include "core/RuntimeError.h"
#include "store/FoodCost.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/SiteConfig.h"
#include "store/StockRec1000.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ItemRec500Test, FieldsStandAtTheirPlaces)
{
    const int offsets[] = {0, 2, 20, 40, 41, 59, 61, 79, 80, 100, 110, 120, 121, 122, 172, 182, 202, 222, 227, 232, 233};
    for (int field = 0; field < ItemRec500::fieldCount; ++field)
        EXPECT_EQ(ItemRec500::span(field).offset, offsets[field]) << "field " << field;
    EXPECT_EQ(ItemRec500::span(ItemRec500::RecordTail).width, 267);
}

TEST(ItemRec500Test, TitlesOfEighteenFitAndNineteenLoseTheirLastCharacter)
{
    ItemRec500 item;
    item.setField(ItemRec500::ButtonTitle, "Grilled Cheese Mel");
    item.setField(ItemRec500::AltTitle, "kept");
    EXPECT_EQ(item.trimmedField(ItemRec500::ButtonTitle), "Grilled Cheese Mel");
    item.setField(ItemRec500::ButtonTitle, "Grilled Cheese Melt");
    EXPECT_EQ(item.trimmedField(ItemRec500::ButtonTitle), "Grilled Cheese Mel");
    EXPECT_EQ(item.trimmedField(ItemRec500::AltTitle), "kept") << "a long title doesn't spill into the next field";
}

TEST(ItemRec500Test, EachReaderHasItsOwnFreeSlots)
{
    struct Case
    {
        const char *title;
        bool button, drink, retail;
    };
    const Case cases[] = {
        {"", true, true, true},
        {"  Avaliable ", true, true, true},
        {"Available", true, true, false},
        {"-", false, true, false},
        {"Avail", false, false, false},
        {"Burger", false, false, false},
        {"avaliable", false, false, false},
    };
    for (const Case &test : cases) {
        ItemRec500 item;
        item.setField(ItemRec500::ButtonTitle, test.title);
        EXPECT_EQ(item.isFree(FreeSlotRule::ButtonRebuild), test.button) << test.title;
        EXPECT_EQ(item.isFree(FreeSlotRule::DrinkRebuild), test.drink) << test.title;
        EXPECT_EQ(item.isFree(FreeSlotRule::RetailRebuild), test.retail) << test.title;
    }
}

TEST(ItemRec500Test, TheSisterFileReplacesTheLastThreeCharacters)
{
    EXPECT_EQ(SisterPath("c:\\Quillon\\ini\\1\\Button3.dat"), "c:\\Quillon\\ini\\1\\Button3.IVM");
    EXPECT_EQ(SisterPath("D:\\SITEdata\\RetailItems.DAT"), "D:\\SITEdata\\RetailItems.IVM");
    EXPECT_EQ(SisterPath("ab"), "IVM");
}

TEST(IvmRec1000Test, ClearedRowsAndTheRecipeEndAtTheFirstEmptyName)
{
    const QByteArray emptyRow = QByteArray(30, ' ') + "0" + QByteArray(9, ' ') + "Ounce" + QByteArray(5, ' ');
    EXPECT_EQ(IvmRec1000::Cleared().bytes(), emptyRow.repeated(20));
    EXPECT_TRUE(IvmRec1000::Cleared().rows().isEmpty());

    IvmRec1000 recipe = IvmRec1000::Cleared();
    recipe.setRow(1, {"Ground Beef", "6", "Ounce"});
    recipe.setRow(3, {"Bun", "1", "Each"});
    ASSERT_EQ(recipe.rows().size(), 1) << "rows behind an empty row aren't looked at";
    EXPECT_EQ(recipe.rows().first().IngredientName, "Ground Beef");
    for (int row = 1; row <= IvmRec1000::rowCount; ++row)
        recipe.setRow(row, {"Row " + QByteArray::number(row), "1", "Ounce"});
    EXPECT_EQ(recipe.rows().size(), 20);
    EXPECT_EQ(recipe.row(20).IngredientName, "Row 20");
}

class FoodCostTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Site().DataRoot = "C:\\Quillon\\";
        units.cells[1] = {"", "Pound", "16"};
        units.cells[2] = {"", "Each", "4"};
        units.cells[3] = {"", "Bottle", "25.4"};
    }

    void writeRecipe(const IvmRec1000 &recipe)
    {
        site.write(QStringLiteral("Quillon/ini/Button0.IVM"), IvmRec1000::Cleared().bytes() + recipe.bytes());
    }

    // The second item's recipe, of these rows from the first on.
    void writeRecipeRows(std::initializer_list<RecipeRow> rows)
    {
        IvmRec1000 recipe = IvmRec1000::Cleared();
        int number = 0;
        for (const RecipeRow &row : rows)
            recipe.setRow(++number, row);
        writeRecipe(recipe);
    }

    void writeStock(std::initializer_list<std::tuple<QByteArray, QByteArray, QByteArray>> articles)
    {
        QByteArray bytes;
        for (const auto &[name, cost, unit] : articles) {
            StockRec1000 record;
            record.setField(StockRec1000::StockName, name);
            record.setField(StockRec1000::UnitCost, cost);
            record.setField(StockRec1000::CostUnit, unit);
            bytes += record.bytes();
        }
        site.write(QStringLiteral("Quillon/data/LiqInventory.dat"), bytes);
    }

    FoodCostTexts costOfSecondItem(const char *price) { return FoodCost("C:\\Quillon\\ini\\Button0.dat", 2, price, units); }

    test::TempSite site;
    UnitTable units;
};

TEST_F(FoodCostTest, CostsARecipeAgainstThePrice)
{
    writeStock({{"Ground Beef", "0.25", "Ounce"}, {"Bun", "0.50", "Each"}});
    writeRecipeRows({{"Ground Beef", "4", "Ounce"}, {"Bun", "1", "Each"}});
    // 4 x 0.25, and 1 Each = 4 ounces at the Each price: 4 x 0.50, together 3.00.
    EXPECT_EQ(costOfSecondItem("8.00").cost, "$3.00");
    EXPECT_EQ(costOfSecondItem("8.00").percentage, "37%") << "37.5 is cut, not rounded";
    EXPECT_EQ(costOfSecondItem("").percentage, "0%");
}

TEST_F(FoodCostTest, ThePercentageOfAnExactTotalIsCutTowardsZero)
{
    writeStock({{"Salt", "0.10", "Ounce"}, {"Beef", "0.40", "Ounce"}});
    writeRecipeRows({{"Salt", "3", "Ounce"}, {"Beef", "5", "Ounce"}});
    EXPECT_EQ(costOfSecondItem("10").cost, "$2.30");
    // price, percentage: 230 over the price, where 100 x 2.3 in a double is 229.99999999999997.
    const std::pair<const char *, const char *> cases[] = {
        {"10", "23%"}, {"4.60", "50%"}, {"10.01", "22%"}, {"9.99", "23%"}, {"0", "0%"}, {"-10", "0%"}};
    for (const auto &[price, percentage] : cases)
        EXPECT_EQ(costOfSecondItem(price).percentage, percentage) << price;
}

TEST_F(FoodCostTest, TheOddOrderOfUnitTestsIsKept)
{
    writeStock({{"Vodka", "25.40", "Bottle"}, {"Lime", "0.20", "Ounce"}});
    writeRecipeRows({{"Lime", "1.5", "Ounce"}, {"Vodka", "2", "Ounce"}, {"Vodka", "0.1", "Bottle"}});
    // 1.5 x 0.20 + 2 x 25.40 / 25.4 + (0.1 x 25.4 ounces) x 25.40 unconverted
    EXPECT_EQ(costOfSecondItem("9.00").cost, "$66.82");
}

TEST_F(FoodCostTest, WithoutRecipeOrStockNothingIsCosted)
{
    EXPECT_EQ(costOfSecondItem("4.00").cost, "$ 0.00") << "no recipe file";
    IvmRec1000 recipe = IvmRec1000::Cleared();
    recipe.setRow(2, {"Bun", "1", "Each"});
    writeRecipe(recipe);
    EXPECT_EQ(costOfSecondItem("4.00").cost, "$0.00") << "a first row with an empty name ends the recipe";
    EXPECT_EQ(FoodCost("C:\\Quillon\\ini\\Button0.dat", 3, "4.00", units).cost, "$ 0.00") << "past the recipe file";
    recipe.setRow(1, {"Bun", "1", "Each"});
    writeRecipe(recipe);
    EXPECT_EQ(costOfSecondItem("4.00").cost, "$0.00") << "no stock file";
    writeStock({{"Bun", "0.50", "Dozen"}});
    EXPECT_THROW(costOfSecondItem("4.00"), RuntimeError) << "a stock unit the table doesn't hold";
}

} // namespace
} // namespace qlon

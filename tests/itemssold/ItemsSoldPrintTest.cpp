#include "itemssold/logic/ItemsSoldPrint.h"

#include "tests/support/Printers.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ItemsSoldPrintTest, TheSlipPrintsEachLineAtItsSize)
{
    const QList<SlipLine> slip = ItemsSoldSlip({"", "03/01/04", "03/02/04", {"2\tBurger\t$13.00", "1\tFries\t$2.50"}, "$15.50"});
    QByteArrayList texts;
    QList<int> sizes;
    for (const SlipLine &line : slip) {
        texts.append(line.text);
        sizes.append(line.fontSize);
    }
    EXPECT_EQ(texts,
        (QByteArrayList{"", "Items Sold", "From 03/01/04  To 03/02/04", "2\tBurger\t$13.00", "1\tFries\t$2.50", "", "Total Sales Volume",
            "$15.50", "", "__________________ END REPORT"}));
    EXPECT_EQ(sizes, (QList<int>{15, 25, 8, 10, 10, 10, 15, 30, 10, 10}));
}

TEST(ItemsSoldPrintTest, EngineRowsGoThreeABlockWithABlankForEachMissingField)
{
    const QList<QList<EngineRow>> blocks =
        EngineBlocks({"2|Burger|$13.00|6.50|Food", "1|Fries|$2.50|2.50|Food", "3|Gift Card & Reloads|$75.00", "7"});
    ASSERT_EQ(blocks.size(), 2);
    EXPECT_EQ(blocks[0].size(), 3);
    EXPECT_EQ(blocks[0][2], (EngineRow{"3", "Gift Card & Reloads", "$75.00"}));
    ASSERT_EQ(blocks[1].size(), 1) << "the part-filled block";
    EXPECT_EQ(blocks[1][0], (EngineRow{"7", " ", " "}));
    EXPECT_TRUE(EngineBlocks({}).isEmpty()) << "an empty list prints no block";
}

} // namespace
} // namespace qlon

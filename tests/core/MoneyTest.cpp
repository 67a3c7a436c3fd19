#include "core/Money.h"
#include "core/RuntimeError.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(MoneyTest, DoublesAreRoundedToFourDecimalsHalvesToEven)
{
    // value, units, text; 1/32 and 3/32 are halves at the fifth decimal even in binary.
    const struct
    {
        double value;
        qint64 units;
        const char *text;
    } cases[] = {
        {2.3, 23000, "2.3"},
        {0.03125, 312, "0.0312"},
        {0.09375, 938, "0.0938"},
        {-0.03125, -312, "-0.0312"},
        {12, 120000, "12"},
        {-0.05, -500, "-0.05"},
        {0, 0, "0"},
    };
    for (const auto &[value, units, text] : cases) {
        EXPECT_EQ(Money::FromDouble(value).units(), units) << value;
        EXPECT_EQ(Money::FromDouble(value).toText(), text) << value;
    }
    EXPECT_THROW(Money::FromDouble(922337203685478.0), RuntimeError);
    EXPECT_THROW(Money::FromDouble(std::nan("")), RuntimeError);
}

TEST(MoneyTest, SumsAndMultiplesAreExact)
{
    Money total;
    for (int step = 0; step < 10; ++step)
        total = total + Money::FromDouble(0.1);
    EXPECT_EQ(total, Money::FromDouble(1));
    EXPECT_EQ((Money::FromDouble(2.3) * 100).toDouble(), 230.0) << "a double gives 229.99999999999997";
    EXPECT_THROW(Money::FromDouble(922337203685477) * 10, RuntimeError);
    EXPECT_THROW(Money::FromDouble(922337203685477) + Money::FromDouble(1), RuntimeError);
}

TEST(MoneyTest, TextsAreReadAsNumbers)
{
    EXPECT_EQ(Money::FromText("$1,234.50")->units(), 12345000);
    EXPECT_EQ(Money::FromText("(0.00005)")->units(), 0) << "a negative half goes to the even zero";
    EXPECT_EQ(Money::FromText(" 7 ")->toText(), "7");
    EXPECT_FALSE(Money::FromText("."));
    EXPECT_FALSE(Money::FromText("12 items"));
}

} // namespace
} // namespace qlon

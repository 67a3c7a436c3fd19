#include "core/Conversions.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace qlon {
namespace {

TEST(ConversionsTest, NumericValueReadsTheLeadingNumber)
{
    const struct
    {
        const char *text;
        double expected;
    } cases[] = {
        {"12.50", 12.5},
        {"12 items", 12},
        {"1,234.50", 1},
        {"$12.50", 0},
        {".", 0},
        {"", 0},
        {"   ", 0},
        {"1 2", 12},
        {"-3.5x", -3.5},
        {" \t\n7", 7},
        {"1\n2\t3", 123},
        {"- 3", -3},
        {"+4", 4},
        {"78.", 78},
        {".5", 0.5},
        {"12.123.4", 12.123},
        {"1.2.3", 1.2},
        {"-", 0},
        {"1e3", 1},
        {"\r5", 0},
    };
    for (const auto &c : cases)
        EXPECT_EQ(NumericValue(c.text), c.expected) << '"' << c.text << '"';
}

// A text of digits alone reads as the general reading reads it, which a blank before it takes.
TEST(ConversionsTest, DigitsAloneReadAsTheGeneralReadingReadsThem)
{
    QByteArrayList texts = {"0", "007", "32767", "32768", "999999999", "1234567890", "12a", "1.5", "1e3", "-4", "+4"};
    for (int number = 0; number < 100000; number += 7)
        texts.append(QByteArray::number(number));
    for (const QByteArray &text : texts) {
        EXPECT_EQ(NumericValue(text), NumericValue(" " + text)) << text.constData();
        EXPECT_EQ(ToNumber(text), ToNumber(" " + text)) << text.constData();
    }
}

TEST(ConversionsTest, NumericValueOfANumberBeyondDoubleRangeIsZero)
{
    EXPECT_EQ(NumericValue(QByteArray(400, '9')), 0);
}

// A plain decimal form is read directly; behind a blank, the same form takes the walk.
TEST(ConversionsTest, PlainDecimalsReadAsTheWalkReadsThem)
{
    for (const char *text : {"12.5", "-0.25", "5.", ".5", "-.5", "-", "", ".", "007", "0.1", "-0", "123456789012345678901234567890",
             "0.30000000000000004", "1.2.3", "4.5x"}) {
        const double direct = NumericValue(text);
        const double walked = NumericValue(' ' + QByteArray(text));
        EXPECT_EQ(std::signbit(direct), std::signbit(walked)) << text;
        EXPECT_EQ(direct, walked) << text;
    }
    EXPECT_EQ(NumericValue(QByteArray(400, '9') + ".5"), 0);
}

// A random text of digits, with a point somewhere or none and a minus sign or none.
QByteArray randomDecimal(QRandomGenerator &random, int digits)
{
    QByteArray text;
    for (int digit = 0; digit < digits; ++digit)
        text += char('0' + random.bounded(10));
    const int point = random.bounded(digits + 2);
    if (point <= digits)
        text.insert(point, '.');
    return random.bounded(2) == 0 ? '-' + text : text;
}

// A short plain decimal is read directly; behind a blank, the same text takes the walk.
TEST(ConversionsTest, ShortDecimalsReadAsTheWalkReadsThem)
{
    QByteArrayList texts = {"0", "-0", "0.0", "-.5", "5.", ".5", "0.1", "0.3", "2.675", "999999999999999", "0.00000000000001",
        "123456789.012345", "9007199254740.99"};
    QRandomGenerator random(11);
    for (int text = 0; text < 20000; ++text)
        texts.append(randomDecimal(random, 1 + random.bounded(15)));
    for (const QByteArray &text : texts) {
        const std::optional<ShortDecimal> decimal = ReadShortDecimal(text);
        ASSERT_TRUE(decimal) << text.constData();
        const double walked = NumericValue(' ' + text);
        ASSERT_EQ(std::signbit(decimal->value()), std::signbit(walked)) << text.constData();
        ASSERT_EQ(decimal->value(), walked) << text.constData();
        ASSERT_EQ(ToNumber(text), ToNumber(' ' + text)) << text.constData();
    }
}

TEST(ConversionsTest, OnlyAShortPlainDecimalReadsAsShort)
{
    for (const char *text : {"", ".", "-", "-.", "+4", " 4", "4 ", "1.2.3", "1e3", "1,000", "$4", "--4", "4-", "1234567890123456",
             "1234567890.123456", "0000000000000000"})
        EXPECT_FALSE(ReadShortDecimal(text)) << '"' << text << '"';
    const std::optional<ShortDecimal> decimal = ReadShortDecimal("-012.340");
    ASSERT_TRUE(decimal);
    EXPECT_TRUE(decimal->negative);
    EXPECT_EQ(decimal->digits, 12340);
    EXPECT_EQ(decimal->decimals, 3);
}

TEST(ConversionsTest, ToNumberAcceptsOnlyAWholeNumber)
{
    const struct
    {
        const char *text;
        std::optional<double> expected;
    } cases[] = {
        {"12", 12},
        {" 12.5 ", 12.5},
        {"1,234.50", 1234.5},
        {"$1,234.50", 1234.5},
        {"-$3", -3},
        {"$-3", -3},
        {"+7", 7},
        {"(12)", -12},
        {"($1,234.50)", -1234.5},
        {"1e3", 1000},
        {"2.5E-1", 0.25},
        {".5", 0.5},
        {"78.", 78},
        {"0", 0},
        {".", std::nullopt},
        {"", std::nullopt},
        {"   ", std::nullopt},
        {"12 items", std::nullopt},
        {"abc", std::nullopt},
        {"$", std::nullopt},
        {"-", std::nullopt},
        {"1e", std::nullopt},
        {"(12", std::nullopt},
        {"(-12)", std::nullopt},
        {",5", std::nullopt},
        {"1-", std::nullopt},
        {"1 2", std::nullopt},
        {"1e999", std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(ToNumber(c.text), c.expected) << '"' << c.text << '"';
}

TEST(ConversionsTest, ToIntegerRoundsHalvesToEvenWithinTheWidth)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        double value;
        IntegerWidth width;
        std::optional<qint32> expected;
    } cases[] = {
        {2.5, IntegerWidth::Bits32, 2},
        {3.5, IntegerWidth::Bits32, 4},
        {-2.5, IntegerWidth::Bits32, -2},
        {-3.5, IntegerWidth::Bits32, -4},
        {0.5, IntegerWidth::Bits32, 0},
        {1.5, IntegerWidth::Bits32, 2},
        {2.4999, IntegerWidth::Bits32, 2},
        {2.6, IntegerWidth::Bits32, 3},
        {-0.4, IntegerWidth::Bits32, 0},
        {32767, IntegerWidth::Bits16, 32767},
        {32767.5, IntegerWidth::Bits16, std::nullopt},
        {-32768.5, IntegerWidth::Bits16, -32768},
        {-32769, IntegerWidth::Bits16, std::nullopt},
        {40000, IntegerWidth::Bits32, 40000},
        {2147483647, IntegerWidth::Bits32, 2147483647},
        {2147483647.5, IntegerWidth::Bits32, std::nullopt},
        {-2147483648.0, IntegerWidth::Bits32, -2147483647 - 1},
        {nan, IntegerWidth::Bits32, std::nullopt},
        {infinity, IntegerWidth::Bits32, std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(ToInteger(c.value, c.width), c.expected) << c.value;
}

TEST(ConversionsTest, ToIntegerOfTextFailsForNonNumbers)
{
    const struct
    {
        const char *text;
        IntegerWidth width;
        std::optional<qint32> expected;
    } cases[] = {
        {"2.5", IntegerWidth::Bits32, 2},
        {" 7 ", IntegerWidth::Bits32, 7},
        {"1,234", IntegerWidth::Bits16, 1234},
        {"40000", IntegerWidth::Bits16, std::nullopt},
        {"40000", IntegerWidth::Bits32, 40000},
        {".", IntegerWidth::Bits32, std::nullopt},
        {"", IntegerWidth::Bits32, std::nullopt},
        {"12 items", IntegerWidth::Bits32, std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(ToInteger(c.text, c.width), c.expected) << '"' << c.text << '"';
}

TEST(ConversionsTest, ToIntegerWidthDefaultsTo32Bits)
{
    EXPECT_EQ(ToInteger(40000.0), 40000);
    EXPECT_EQ(ToInteger("40000"), 40000);
}

} // namespace
} // namespace qlon

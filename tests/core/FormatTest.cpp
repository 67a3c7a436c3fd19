#include "core/Format.h"

#include "core/Conversions.h"

#include <gtest/gtest.h>

#include <string>

namespace qlon {
namespace {

TEST(FormatTest, NumberPatterns)
{
    const struct
    {
        double value;
        const char *pattern;
        const char *expected;
    } cases[] = {
        {78, "#########.##", "78."},
        {78.5, "#########.##", "78.5"},
        {78.456, "#########.##", "78.46"},
        {0.5, "#########.##", ".5"},
        {0, "#########.##", "."},
        {-3.5, "#########.##", "-3.5"},
        {1.005, "#########.##", "1.01"},
        {2.675, "########.##", "2.68"},
        {-2.675, "########.##", "-2.68"},
        {0.1 + 0.2, "########.##", ".3"},
        {3.65 + 2.085, "##########.##", "5.74"}, // 5.734999999999999 in binary, 5.735 in 15 digits
        {1e22, "#", "10000000000000000000000"},
        {1.5e-7, "#########.##", "."},
        {0.995, "########.##", "1."},
        {99.999, "########.##", "100."},
        {0.004, "########.##", "."},
        {-0.004, "########.##", "."},
        {123456.78, "#####.##", "123456.78"},
        {12345678901.25, "##########.##", "12345678901.25"},
        {1234567.5, "###,###,###.##", "1,234,567.5"},
        {123, "###,###,###.##", "123."},
        {1234, "###,###,###.##", "1,234."},
        {1e9, "###,###,###.##", "1,000,000,000."},
        {-1234.5, "###,###,###.##", "-1,234.5"},
        {0, "###,###,###.##", "."},
        {12.5, "###.###.##", "12.5"},
        {12.1234, "###.###.##", "12.123.4"},
        {12, "###.###.##", "12."},
        {12.123, "###.###.##", "12.123"},
        {12.12345, "###.###.##", "12.123.45"},
        {12.123456, "###.###.##", "12.123.46"},
        {0.1, "###.###.##", ".1"},
        {7.6, "#", "8"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format(c.value, c.pattern).toStdString(), c.expected) << c.value << " with " << c.pattern;
}

TEST(FormatTest, PriceNormalisationKeepsPricesOfUpToThreeDecimals)
{
    for (const double price : {12.5, 3.125, 0.999, 1234.001, 0.0, 7.0})
        EXPECT_EQ(NumericValue(Format(price, "###.###.##")), price) << price;
}

TEST(FormatTest, LonePointReadsAsZero)
{
    EXPECT_EQ(NumericValue(Format(0.0, "#########.##")), 0);
}

TEST(FormatTest, DateTimePatterns)
{
    const QDateTime evening(QDate(2004, 3, 31), QTime(18, 5, 9));
    const QDateTime midnight(QDate(2005, 1, 2), QTime(0, 0));
    const QDateTime noon(QDate(2000, 7, 4), QTime(12, 30, 0));
    const struct
    {
        QDateTime value;
        const char *pattern;
        const char *expected;
    } cases[] = {
        {evening, "MM/DD/YY", "03/31/04"},
        {evening, "mm/dd/yy", "03/31/04"},
        {evening, "MMYYYY", "032004"},
        {evening, "YY", "04"},
        {evening, "MM", "03"},
        {evening, "MMMM", "March"},
        {evening, "DDDD", "Wednesday"},
        {evening, "DDDD mm/dd/yyyy", "Wednesday 03/31/2004"},
        {evening, "HH:MM:SS", "18:05:09"},
        {evening, "hh:mm:ss", "18:05:09"},
        {evening, "HH:MM ampm", "06:05 PM"},
        {evening, "M/D/YYYY", "3/31/2004"},
        {evening, "MMM DDD", "Mar Wed"},
        {midnight, "HH:MM ampm", "12:00 AM"},
        {midnight, "HH:MM:SS", "00:00:00"},
        {midnight, "MMMM", "January"},
        {midnight, "DDDD", "Sunday"},
        {noon, "HH:MM ampm", "12:30 PM"},
        {noon, "YY", "00"},
        {noon, "MMYYYY", "072000"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format(c.value, c.pattern).toStdString(), c.expected)
            << c.value.toString(Qt::ISODate).toStdString() << " with " << c.pattern;
}

TEST(FormatTest, DateAndTimeAloneFormatLikeTheirDateTime)
{
    EXPECT_EQ(Format(QDate(2004, 3, 31), "MM/DD/YY HH:MM:SS").toStdString(), "03/31/04 00:00:00");
    EXPECT_EQ(Format(QTime(23, 59, 30), "HH:MM ampm").toStdString(), "11:59 PM");
}

TEST(FormatTest, CurrencyOfNumbers)
{
    const struct
    {
        double value;
        const char *expected;
    } cases[] = {
        {1234.5, "$1,234.50"},
        {0, "$0.00"},
        {-1234.5, "($1,234.50)"},
        {0.005, "$0.01"},
        {-0.005, "($0.01)"},
        {1.005, "$1.01"},
        {3.65 + 2.085, "$5.74"},
        {999.995, "$1,000.00"},
        {1234567.891, "$1,234,567.89"},
        {0.1 + 0.2, "$0.30"},
        {-0.001, "$0.00"},
        {78, "$78.00"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Currency(c.value).toStdString(), c.expected) << c.value;
}

TEST(FormatTest, CurrencyOfTextsFailsForNonNumbers)
{
    const struct
    {
        const char *text;
        std::optional<std::string> expected;
    } cases[] = {
        {"78.", "$78.00"},
        {"1,234.5", "$1,234.50"},
        {" 0 ", "$0.00"},
        {".", std::nullopt},
        {"", std::nullopt},
        {"abc", std::nullopt},
    };
    for (const auto &c : cases) {
        const std::optional<QByteArray> money = Currency(QByteArrayView(c.text));
        EXPECT_EQ(money ? std::optional<std::string>(money->toStdString()) : std::nullopt, c.expected) << '"' << c.text << '"';
    }
}

} // namespace
} // namespace qlon

#include "core/Format.h"

#include "core/Conversions.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

// The rounding done by hand on the text of 15 significant digits: the digits laid out by their
// places, cut after the wanted places and raised by one there when the next digit is 5 or more;
// written as a pattern "#.##" writes it.
std::string roundedByHand(double value, int places)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.14e", std::abs(value));
    const std::string digits = text[0] + std::string(text + 2, 14);
    const int exponent = std::atoi(std::strchr(text, 'e') + 1);
    std::string laidOut; // the digits from the highest place down to the one after the last kept
    for (int power = std::max(exponent, 0); power >= -places - 1; --power) {
        const int index = exponent - power;
        laidOut += index >= 0 && index < int(digits.size()) ? digits[std::size_t(index)] : '0';
    }
    const bool up = laidOut.back() >= '5';
    laidOut.pop_back();
    int at = int(laidOut.size()) - 1;
    for (; up && at >= 0 && laidOut[std::size_t(at)] == '9'; --at)
        laidOut[std::size_t(at)] = '0';
    if (up)
        at < 0 ? laidOut.insert(0, "1") : laidOut.replace(std::size_t(at), 1, 1, char(laidOut[std::size_t(at)] + 1));
    std::string whole = laidOut.substr(0, laidOut.size() - std::size_t(places));
    std::string fraction = laidOut.substr(laidOut.size() - std::size_t(places));
    whole.erase(0, whole.find_first_not_of('0'));
    fraction.erase(fraction.find_last_not_of('0') + 1);
    const bool negative = value < 0 && !(whole.empty() && fraction.empty());
    return (negative ? "-" : "") + whole + "." + fraction;
}

TEST(FormatTest, RoundingMatchesTheDecimalTextAtEveryMagnitude)
{
    QRandomGenerator random(20041231);
    for (int trial = 0; trial < 200000; ++trial) {
        const int places = 1 + random.bounded(6);
        const double cents = double(random.bounded(2000000)) - 1000000.0;
        const double values[] = {
            cents / 100.0 + 0.005, // the halves that decide the rounding
            cents / 1000.0,
            (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(-12, 24)),
        };
        for (const double value : values) {
            const QByteArray pattern = "#." + QByteArray(places, '#');
            ASSERT_EQ(Format(value, pattern).toStdString(), roundedByHand(value, places)) << value << " to " << places;
        }
    }
    EXPECT_EQ(roundedByHand(2.675, 2), "2.68") << "the hand rounding itself";
}

TEST(FormatTest, PlainNumbersAreTheShortestOfFifteenDigits)
{
    QRandomGenerator random(20040331);
    const auto qtForm = [](double value) {
        const QByteArray text = QByteArray::number(value, 'g', 15);
        return text == "-0" ? QByteArray("0") : text;
    };
    for (int trial = 0; trial < 100000; ++trial) {
        const double whole = double(random.bounded(100000)) - 50000.0;
        for (const double value :
            {whole, whole / 100.0, whole / 3.0, (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(-30, 30))})
            ASSERT_EQ(PlainNumber(value), qtForm(value)) << value;
    }
    for (const double value :
        {0.0, -0.0, 1e15, 999999999999999.0, 1e-5, 0.0001, 1e300, 5e-324, double(INFINITY), -double(INFINITY), double(NAN)})
        EXPECT_EQ(PlainNumber(value), qtForm(value)) << value;
    EXPECT_EQ(PlainNumber(-0.0), "0");
    EXPECT_EQ(PlainNumber(1e15), "1e+15");
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

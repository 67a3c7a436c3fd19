#include "core/DateText.h"
#include "core/Format.h"

#include <gtest/gtest.h>

#include <string>

namespace qlon {
namespace {

// Dates and times as ISO texts, and a failure as the empty text, for readable comparisons.
std::string Shown(const std::optional<QDate> &date)
{
    return date ? date->toString(Qt::ISODate).toStdString() : std::string();
}

std::string Shown(const std::optional<QTime> &time)
{
    return time ? time->toString(Qt::ISODate).toStdString() : std::string();
}

TEST(DateTextTest, ToDateTakesTheFirstOrderThatGivesARealDate)
{
    const struct
    {
        const char *text;
        const char *expected;
    } cases[] = {
        {"03/31/04", "2004-03-31"},
        {"3/31/2004", "2004-03-31"},
        {"04/31/04", ""},
        {"04/31/05", "2004-05-31"},
        {"06/31/05", "2006-05-31"},
        {"02/29/04", "2004-02-29"},
        {"02/29/03", "2002-03-29"},
        {"2004-03-31", "2004-03-31"},
        {"2004/3/31", "2004-03-31"},
        {"31/3/2004", "2004-03-31"},
        {"13/12/2004", "2004-12-13"},
        {"31.03.2004", "2004-03-31"},
        {"01/02/29", "2029-01-02"},
        {"01/02/30", "1930-01-02"},
        {"12/31/99", "1999-12-31"},
        {"1/1/0", "2000-01-01"},
        {"1/1/500", "0500-01-01"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Shown(ToDate(c.text)), c.expected) << '"' << c.text << '"';
}

TEST(DateTextTest, ToDateAllowsBlanksAndATimeAndNothingElse)
{
    const struct
    {
        const char *text;
        const char *expected;
    } cases[] = {
        {"  3/31/2004  ", "2004-03-31"},
        {"3/31/2004 6:05:00 PM", "2004-03-31"},
        {"3/31/2004 18:05", "2004-03-31"},
        {"", ""},
        {"   ", ""},
        {"3/31", ""},
        {"3/31/", ""},
        {"3//2004", ""},
        {"3/31/2004x", ""},
        {"3/31/2004 noon", ""},
        {"3/31/2004 6:", ""},
        {"3/31/2004 25:00", ""},
        {"3/31/2004 6:05 PM x", ""},
        {"18:05", ""},
        {"a/b/c", ""},
        {"1/1/12345", ""},
        {"3 31 2004", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Shown(ToDate(c.text)), c.expected) << '"' << c.text << '"';
}

TEST(DateTextTest, ToTimeReadsTheClock)
{
    const struct
    {
        const char *text;
        const char *expected;
    } cases[] = {
        {"12:00 am", "00:00:00"},
        {"12:30 PM", "12:30:00"},
        {"11:59 pm", "23:59:00"},
        {"18:05", "18:05:00"},
        {"6:05:30 PM", "18:05:30"},
        {"6:05PM", "18:05:00"},
        {"6:05 Am", "06:05:00"},
        {"  9:15  ", "09:15:00"},
        {"23:59:59", "23:59:59"},
        {"0:00", "00:00:00"},
        {"3/31/2004 6:05:00 PM", "18:05:00"},
        {"3/31/2004", "00:00:00"},
        {"", ""},
        {"   ", ""},
        {"abc", ""},
        {"6", ""},
        {"6:", ""},
        {"24:00", ""},
        {"12:60", ""},
        {"12:30:60", ""},
        {"123:00", ""},
        {"0:30 am", "00:30:00"},
        {"13:00 PM", "13:00:00"}, // the platform reads an hour past 12 as it stands
        {"13:00 AM", "13:00:00"},
        {"00:00 pm", "12:00:00"},
        {"5.30 pm", "17:30:00"},
        {"5.30", ""},
        {"24:00 pm", ""},
        {"6:05 xm", ""},
        {"6:05:00 PM extra", ""},
        {"04/31/04", ""},
        {"04/31/04 6:05", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Shown(ToTime(c.text)), c.expected) << '"' << c.text << '"';
}

TEST(DateTextTest, ShortDateAndLongTimeWriteTheUsForms)
{
    EXPECT_EQ(ShortDate(QDate(2004, 3, 31)).toStdString(), "3/31/2004");
    EXPECT_EQ(ShortDate(QDate(2004, 12, 5)).toStdString(), "12/5/2004");
    EXPECT_EQ(LongTime(QTime(18, 5, 0)).toStdString(), "6:05:00 PM");
    EXPECT_EQ(LongTime(QTime(0, 0)).toStdString(), "12:00:00 AM");
    EXPECT_EQ(LongTime(QTime(12, 0)).toStdString(), "12:00:00 PM");
    EXPECT_EQ(LongTime(QTime(9, 7, 3)).toStdString(), "9:07:03 AM");
    // Both are what Format writes, at every second of a day and on every day of two centuries.
    for (int second = 0; second < 24 * 3600; ++second) {
        const QTime time = QTime(0, 0).addSecs(second);
        ASSERT_EQ(LongTime(time), Format(time, "H:MM:SS AMPM")) << second;
    }
    // Every long time reads back directly as the general reading reads it behind a blank.
    for (int second = 0; second < 24 * 3600; ++second) {
        const QTime time = QTime(0, 0).addSecs(second);
        ASSERT_EQ(ReadLongTime(LongTime(time)), time) << second;
        ASSERT_EQ(ToTime(' ' + LongTime(time)), time) << second;
    }
    for (const char *other :
        {"6:05 PM", "13:00:00 PM", "06:05:00 PM", "0:05:00 AM", "6:60:00 AM", "6:05:00 XM", "6:05:00 pm", "x6:05:00 PM"}) {
        EXPECT_EQ(ReadLongTime(other), std::nullopt) << other;
        EXPECT_EQ(ToTime(other), ToTime(' ' + QByteArray(other))) << other;
    }
    for (QDate date(1900, 1, 1); date.year() < 2100; date = date.addDays(1))
        ASSERT_EQ(ShortDate(date), Format(date, "M/D/YYYY")) << date.toJulianDay();
    EXPECT_EQ(ShortDate(QDate(999, 12, 31)), Format(QDate(999, 12, 31), "M/D/YYYY"));
}

TEST(DateTextTest, WrittenDatesAndTimesReadBack)
{
    for (const QDate date : {QDate(2004, 3, 31), QDate(1999, 12, 31), QDate(2029, 1, 2), QDate(2004, 5, 31)})
        EXPECT_EQ(ToDate(ShortDate(date)), date) << ShortDate(date).toStdString();
    for (const QTime time : {QTime(0, 0), QTime(12, 0), QTime(18, 5, 30), QTime(23, 59, 59)})
        EXPECT_EQ(ToTime(LongTime(time)), time) << LongTime(time).toStdString();
}

} // namespace
} // namespace qlon

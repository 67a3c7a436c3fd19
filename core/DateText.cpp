#include "core/DateText.h"

#include "core/Format.h"
#include "core/TextCursor.h"

#include <algorithm>
#include <array>

namespace qlon {
namespace {

constexpr QByteArrayView blanks(" \t");

// Where the year, month and day stand among the three numbers of a date.
struct DateOrder
{
    int year;
    int month;
    int day;
};

// Tried in this order; the first that makes a real date wins.
constexpr std::array<DateOrder, 4> dateOrders{{
    {2, 0, 1}, // month/day/year
    {0, 1, 2}, // year/month/day
    {0, 2, 1}, // year/day/month
    {2, 1, 0}, // day/month/year
}};

int fullYear(int year)
{
    if (year >= 100)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<int> takeNumber(TextCursor &cursor, qsizetype maxDigits)
{
    const QByteArrayView digits = cursor.takeDigits();
    if (digits.isEmpty() || digits.size() > maxDigits)
        return std::nullopt;
    return digits.toInt();
}

std::optional<std::array<int, 3>> takeDateNumbers(TextCursor &cursor)
{
    std::array<int, 3> numbers{};
    for (qsizetype index = 0; index < 3; ++index) {
        const std::optional<int> number = takeNumber(cursor, 4);
        if (!number || (index < 2 && !cursor.takeAnyOf("/-.")))
            return std::nullopt;
        numbers[index] = *number;
    }
    return numbers;
}

std::optional<QDate> dateInFirstOrder(const std::array<int, 3> &numbers)
{
    for (const DateOrder &order : dateOrders) {
        const QDate date(fullYear(numbers[order.year]), numbers[order.month], numbers[order.day]);
        if (date.isValid())
            return date;
    }
    return std::nullopt;
}

// Takes a date if one stands at the cursor; the cursor moves only past a date that reads.
std::optional<QDate> takeDate(TextCursor &cursor)
{
    TextCursor ahead = cursor;
    const auto numbers = takeDateNumbers(ahead);
    const std::optional<QDate> date = numbers ? dateInFirstOrder(*numbers) : std::nullopt;
    if (date)
        cursor = ahead;
    return date;
}

// The hour of the day that an hour read beside "AM" or "PM" stands for, as the platform reads
// it: 12 AM is midnight, 0 PM is noon, and an hour past 12 stands as it is whatever follows it.
int dayHour(int hour, bool afternoon)
{
    if (hour > 12)
        return hour;
    if (afternoon)
        return hour == 12 || hour == 0 ? 12 : hour + 12;
    return hour == 12 ? 0 : hour;
}

// "AM" or "PM" after the time: whether it is the afternoon; none when neither stands there.
std::optional<bool> takeMeridiem(TextCursor &cursor)
{
    TextCursor ahead = cursor;
    ahead.skipAnyOf(blanks);
    for (const bool afternoon : {false, true}) {
        if (ahead.takeCaseless(afternoon ? "pm" : "am")) {
            cursor = ahead;
            return afternoon;
        }
    }
    return std::nullopt;
}

std::optional<int> takeSecond(TextCursor &cursor)
{
    return cursor.take(':') ? takeNumber(cursor, 2) : 0;
}

std::optional<QTime> takeTime(TextCursor &cursor)
{
    const std::optional<int> hour = takeNumber(cursor, 2);
    const bool colon = cursor.take(':');
    if (!hour || (!colon && !cursor.take('.')))
        return std::nullopt;
    const std::optional<int> minute = takeNumber(cursor, 2);
    const std::optional<int> second = minute ? takeSecond(cursor) : std::nullopt;
    if (!second)
        return std::nullopt;
    const std::optional<bool> afternoon = takeMeridiem(cursor);
    // A point between hour and minute reads only in a time of the twelve-hour clock: "5.30 pm".
    if (!colon && !afternoon)
        return std::nullopt;
    const int hourOfDay = afternoon ? dayHour(*hour, *afternoon) : *hour;
    if (!QTime::isValid(hourOfDay, *minute, *second))
        return std::nullopt;
    return QTime(hourOfDay, *minute, *second);
}

struct DateAndTime
{
    std::optional<QDate> date;
    std::optional<QTime> time;
};

// Reads a whole text as a date, a time, or a date and a blank and a time; fails for anything else.
std::optional<DateAndTime> readDateAndTime(QByteArrayView text)
{
    TextCursor cursor(text.trimmed());
    DateAndTime read;
    read.date = takeDate(cursor);
    if (read.date && !cursor.atEnd() && !cursor.skipAnyOf(blanks))
        return std::nullopt;
    if (!cursor.atEnd()) {
        read.time = takeTime(cursor);
        if (!read.time || !cursor.atEnd())
            return std::nullopt;
    }
    if (!read.date && !read.time)
        return std::nullopt;
    return read;
}

} // namespace

std::optional<QDate> ToDate(QByteArrayView text)
{
    const std::optional<DateAndTime> read = readDateAndTime(text);
    return read ? read->date : std::nullopt;
}

std::optional<QTime> ReadLongTime(QByteArrayView text)
{
    // "H:MM:SS AM" or "HH:MM:SS PM", the hour from 1 to 12, seen with a blank for a missing tens.
    if (text.size() != 10 && text.size() != 11)
        return std::nullopt;
    std::array<char, 11> form{' '};
    std::copy(text.begin(), text.end(), form.end() - text.size());
    const auto digit = [&form](std::size_t at) { return form[at] >= '0' && form[at] <= '9' ? form[at] - '0' : -100; };
    if (form[2] != ':' || form[5] != ':' || form[8] != ' ' || form[10] != 'M' || (form[9] != 'A' && form[9] != 'P'))
        return std::nullopt;
    const int hour = (form[0] == ' ' ? 0 : digit(0) * 10) + digit(1);
    const int minute = digit(3) * 10 + digit(4);
    const int second = digit(6) * 10 + digit(7);
    if (hour < 1 || hour > 12 || form[0] == '0' || minute < 0 || minute > 59 || second < 0 || second > 59)
        return std::nullopt;
    return QTime(hour % 12 + (form[9] == 'P' ? 12 : 0), minute, second);
}

std::optional<QTime> ToTime(QByteArrayView text)
{
    if (const std::optional<QTime> time = ReadLongTime(text))
        return time;
    const std::optional<DateAndTime> read = readDateAndTime(text);
    if (!read)
        return std::nullopt;
    return read->time.value_or(QTime(0, 0));
}

// The two forms are written out here rather than through Format: every sales row read is
// written in them, and they must stay what Format writes.

QByteArray ShortDate(QDate date)
{
    if (date.year() < 1000 || date.year() > 9999)
        return Format(date, "M/D/YYYY");
    return QByteArray::number(date.month()) + '/' + QByteArray::number(date.day()) + '/' + QByteArray::number(date.year());
}

QByteArray LongTime(QTime time)
{
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    const std::array<char, 11> text{char(hour >= 10 ? '1' : ' '), char('0' + hour % 10), ':', char('0' + time.minute() / 10),
        char('0' + time.minute() % 10), ':', char('0' + time.second() / 10), char('0' + time.second() % 10), ' ',
        time.hour() < 12 ? 'A' : 'P', 'M'};
    const qsizetype start = hour >= 10 ? 0 : 1;
    return QByteArray(text.data() + start, qsizetype(text.size()) - start);
}

} // namespace qlon

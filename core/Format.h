#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDate>
#include <QDateTime>
#include <QTime>

#include <optional>

namespace qlon {

// A number by a pattern of "#", "," and ".". The first "." is the decimal point and is always written;
// each "#" after it is one decimal place, and the number is rounded to them, halves away from zero.
// Before the point as many digits are written as the number needs, whatever the count of "#", with no
// leading zero; a "," there groups them by three. Behind the point trailing zeros are dropped, and any
// later "." is written between the decimals only when more of them follow. So 78 gives "78.", 0.5
// gives ".5", 0 gives "." and, with "###.###.##", 12.1234 gives "12.123.4".
QByteArray Format(double value, QByteArrayView pattern);

// A date and time by a pattern whose letters are read without regard to case: "M"/"MM" month (or minute
// straight after an hour), "MMM"/"MMMM" the month's English short/full name, "D"/"DD" day, "DDD"/"DDDD" the
// weekday's English short/full name, "YY" two-digit and "YYYY" four-digit year, "H"/"HH" hour, "S"/"SS"
// second, and "AMPM" for "AM" or "PM", which also puts the hours on the twelve-hour clock. A doubled letter
// writes two digits. Every other character is written as it stands.
QByteArray Format(const QDateTime &value, QByteArrayView pattern);
QByteArray Format(QDate value, QByteArrayView pattern);
QByteArray Format(QTime value, QByteArrayView pattern);

// The US money form: "$1,234.50", "$0.00", and a negative amount in parentheses, "($1,234.50)";
// rounded to cents, halves away from zero.
QByteArray Currency(double value);

// The money form of a text's number by ToNumber; fails for a text that isn't a number, such as ".".
std::optional<QByteArray> Currency(QByteArrayView text);

} // namespace qlon

namespace qlon {

// A text formatted by a number pattern: a number or a money text ("$1,078.50") is rounded by
// the pattern ("1078.5"); another text stays as it is.
QByteArray FormattedText(QByteArrayView text, QByteArrayView pattern);

// The numeric value of the formatted text: another text counts as its leading number.
double FormattedValue(QByteArrayView text, QByteArrayView pattern);

// A number as the old platform turned it into plain text: up to fifteen significant digits,
// no trailing zeros, no point for a whole number ("12", "2.5", "78.45").
QByteArray PlainNumber(double value);

} // namespace qlon

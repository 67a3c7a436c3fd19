#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDate>
#include <QTime>

#include <optional>

namespace qlon {

// A date from three numbers separated by "/", "-" or ".", read under the first of these orders that gives a
// real calendar date: month/day/year, year/month/day, year/day/month, day/month/year. A year below 100 is
// two-digit: below 30 it lies in the 2000s, otherwise in the 1900s. A time may follow after a blank and is
// passed over; surrounding blanks are allowed. So "04/31/05" is 31 May 2004, and "04/31/04" fails.
std::optional<QDate> ToDate(QByteArrayView text);

// A time of day from hour ":" minute, optional ":" second and an optional "AM" or "PM" in any case
// ("." may part hour and minute before "AM" or "PM"). A date may stand before it and is passed over;
// a text that is only a date gives midnight. Read as the platform reads it: "12:30 AM" is 0:30,
// "13:00 PM" is 13:00, "0:00 PM" is noon. Fails for an empty or unreadable text.
std::optional<QTime> ToTime(QByteArrayView text);
// The time of a text in the form LongTime writes ("6:05:00 PM"), read directly, as ToTime reads
// it; none for any other text.
std::optional<QTime> ReadLongTime(QByteArrayView text);

// The US short date, "3/31/2004".
QByteArray ShortDate(QDate date);

// The US long time, "6:05:00 PM".
QByteArray LongTime(QTime time);

} // namespace qlon

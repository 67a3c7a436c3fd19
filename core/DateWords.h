#pragma once

#include <QDate>
#include <QString>

namespace qlon {

// A date named relative to today, so one nightly script serves every night: "today",
// "yesterday", "today-N", "monday" (this week's), "last-monday" (the week before's),
// "first-of-month", "first-of-last-month", "last-of-last-month". Any other word gives an
// invalid date.
QDate DateFromWord(const QString &word, QDate today);

} // namespace qlon

#pragma once

#include <QDateTime>

namespace qlon {

// Today's date and the time of day, from the system clock unless a test or a scripted run
// fixes them.
QDate Today();
QTime TimeOfDay();
// Fixes the clock at the given moment; an invalid moment goes back to the system clock.
void FixClock(const QDateTime &moment);

} // namespace qlon

#include "core/Clock.h"

namespace qlon {

namespace {
QDateTime fixedMoment;
}

QDate Today()
{
    return fixedMoment.isValid() ? fixedMoment.date() : QDate::currentDate();
}

QTime TimeOfDay()
{
    return fixedMoment.isValid() ? fixedMoment.time() : QTime::currentTime();
}

void FixClock(const QDateTime &moment)
{
    fixedMoment = moment;
}

} // namespace qlon

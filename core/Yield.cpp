#include "core/Yield.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <time.h>

namespace qlon {

namespace {
// A monotonic clock in milliseconds, exact to a few of them, read for the cost of a memory read
// where the system has such a clock: a yield point may be passed at every record of a file.
qint64 coarseMilliseconds()
{
#ifdef CLOCK_MONOTONIC_COARSE
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
#else
    static const QElapsedTimer started = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return started.elapsed();
#endif
}
} // namespace

void Yield()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

bool YieldClock::isDue() const
{
    return !m_lastYield || coarseMilliseconds() - *m_lastYield >= m_interval;
}

void YieldClock::operator()()
{
    if (m_lastYield && ++m_callsSinceReading < callsPerReading)
        return;
    m_callsSinceReading = 0;
    if (!isDue())
        return;
    Yield();
    m_lastYield = coarseMilliseconds();
}

} // namespace qlon

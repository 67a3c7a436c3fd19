#include "core/Yield.h"

#include <QCoreApplication>

namespace qlon {

void Yield()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

bool YieldClock::isDue() const
{
    return !m_sinceYield.isValid() || m_sinceYield.elapsed() >= m_interval;
}

void YieldClock::operator()()
{
    if (!isDue())
        return;
    Yield();
    m_sinceYield.start();
}

} // namespace qlon

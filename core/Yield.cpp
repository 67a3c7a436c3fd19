#include "core/Yield.h"

#include <QCoreApplication>

namespace qlon {

void Yield()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void YieldClock::operator()()
{
    if (m_sinceYield.isValid() && m_sinceYield.elapsed() < m_interval)
        return;
    Yield();
    m_sinceYield.start();
}

} // namespace qlon

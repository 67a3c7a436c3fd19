#include "ui/ScreenTimer.h"

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

namespace qlon {

namespace {

qint64 advancedBy = 0;
std::vector<ScreenTimer *> startedTimers;

const QElapsedTimer &realClock()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock;
}

} // namespace

ScreenTimer::ScreenTimer(QObject *parent, int interval)
    : QObject(parent)
    , m_interval(interval)
{
    m_realTime.setSingleShot(true);
    connect(&m_realTime, &QTimer::timeout, this, &ScreenTimer::fire);
}

ScreenTimer::~ScreenTimer()
{
    stop();
}

void ScreenTimer::start(int interval)
{
    m_interval = interval;
    if (!isActive())
        startedTimers.push_back(this);
    m_due = ProgramClock() + interval;
    arm();
}

void ScreenTimer::stop()
{
    m_realTime.stop();
    if (isActive())
        std::erase(startedTimers, this);
    m_due = -1;
}

void ScreenTimer::arm()
{
    m_realTime.start(static_cast<int>(std::max<qint64>(0, m_due - ProgramClock())));
}

// The state is settled before the timeout's handler runs: the handler may stop, restart or
// delete the timer.
void ScreenTimer::fire()
{
    if (m_singleShot) {
        stop();
    } else {
        // A repeating timer keeps its beat from when it was due; a late one starts anew.
        m_due = std::max(m_due + std::max(m_interval, 1), ProgramClock());
        arm();
    }
    emit timeout();
}

qint64 ProgramClock()
{
    return realClock().elapsed() + advancedBy;
}

void AdvanceClock(qint64 milliseconds)
{
    const qint64 until = ProgramClock() + milliseconds;
    for (;;) {
        const auto next = std::min_element(startedTimers.begin(), startedTimers.end(),
            [](const ScreenTimer *one, const ScreenTimer *other) { return one->due() < other->due(); });
        if (next == startedTimers.end() || (*next)->due() > until)
            break;
        advancedBy += std::max<qint64>(0, (*next)->due() - ProgramClock());
        (*next)->fire();
    }
    advancedBy += std::max<qint64>(0, until - ProgramClock());
}

} // namespace qlon

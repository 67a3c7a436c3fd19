#pragma once

#include <QtGlobal>

#include <optional>

namespace qlon {

// One turn of the event loop: paints the screen and serves pending events, clicks on other
// buttons included, then returns. Long runs call it at fixed points; it is how "Stop" is heard.
void Yield();

// A yield at most once in an interval, the first call included: a loop that passes a yield point
// at every record still repaints and hears "Stop" within a moment, without spending its time in
// the event loop. The screen shows the run's latest state at each yield, as it always did; it is
// only painted less often than once a record.
class YieldClock
{
public:
    static constexpr int defaultIntervalMilliseconds = 20;

    explicit YieldClock(int intervalMilliseconds = defaultIntervalMilliseconds)
        : m_interval(intervalMilliseconds)
    {
    }

    // Yields when due. The clock is read at every 64th call only, which a loop over records
    // reaches within moments: a reading costs more than a short record.
    void operator()();
    // The interval has passed since the last yield, or none was made yet.
    bool isDue() const;
    // The next call yields.
    void restart() { m_lastYield.reset(); }

private:
    static constexpr int callsPerReading = 64;

    std::optional<qint64> m_lastYield; // on the coarse clock, in milliseconds
    int m_interval;
    int m_callsSinceReading = 0;
};

} // namespace qlon

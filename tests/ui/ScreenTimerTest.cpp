#include "ui/ScreenTimer.h"
#include "core/Yield.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <thread>

namespace qlon {
namespace {

// No event loop runs here: only the advanced clock fires the timers.
TEST(ScreenTimerTest, AdvanceFiresEveryTimerDueInTheOrderTheyFallDue)
{
    QObject owner;
    ScreenTimer beat(&owner, 1000);
    ScreenTimer once(&owner);
    once.setSingleShot(true);
    QStringList fired;
    QObject::connect(&beat, &ScreenTimer::timeout, &owner, [&] { fired.append(QStringLiteral("beat")); });
    QObject::connect(&once, &ScreenTimer::timeout, &owner, [&] {
        fired.append(QStringLiteral("once"));
        once.start(5000); // a handler may start its timer anew, as the printer status refresh does
        once.stop();
    });
    beat.start();
    once.start(1500);

    AdvanceClock(2500);
    EXPECT_EQ(fired, (QStringList{QStringLiteral("beat"), QStringLiteral("once"), QStringLiteral("beat")}));
    EXPECT_TRUE(beat.isActive());
    EXPECT_FALSE(once.isActive());

    beat.stop();
    AdvanceClock(10000);
    EXPECT_EQ(fired.size(), 3) << "a stopped timer stays quiet";
}

// A yield clock serves the events waiting on its first call and again once its interval has
// passed, or after a restart; calls in between don't turn the event loop.
TEST(YieldClockTest, YieldsOnTheFirstCallAndThenOncePerInterval)
{
    QObject owner;
    int served = 0;
    const auto post = [&] {
        QMetaObject::invokeMethod(
            &owner, [&] { ++served; }, Qt::QueuedConnection);
    };
    YieldClock clock(60000);
    post();
    clock();
    EXPECT_EQ(served, 1);
    post();
    clock();
    EXPECT_EQ(served, 1) << "within the interval";
    clock.restart();
    clock();
    EXPECT_EQ(served, 2);

    // With no interval to wait, a run of calls still turns the loop now and then, not at each.
    YieldClock eager(0);
    eager();
    EXPECT_EQ(served, 2);
    post();
    for (int call = 0; call < 63; ++call)
        eager();
    EXPECT_EQ(served, 2) << "between two readings of the clock";
    eager();
    EXPECT_EQ(served, 3);

    // The interval counts milliseconds: twice the default has passed, and the next reading yields.
    YieldClock brisk;
    brisk();
    post();
    std::this_thread::sleep_for(std::chrono::milliseconds(2 * YieldClock::defaultIntervalMilliseconds));
    for (int call = 0; call < 64; ++call)
        brisk();
    EXPECT_EQ(served, 4);
}

} // namespace
} // namespace qlon

#include "web/logic/ReportQueue.h"

#include <QSemaphore>

#include <gtest/gtest.h>

#include <atomic>

namespace qlon::web {
namespace {

using namespace std::chrono_literals;
using Phase = ReportQueue::State::Phase;

TEST(ReportQueueTest, RunsOneReportAtATimeInTheOrderTheyCameAndShowsEachItsPlace)
{
    QSemaphore release;
    std::atomic<int> running = 0;
    std::atomic<int> mostAtOnce = 0;
    QStringList order;
    ReportQueue queue(
        [&](const ReportJob &job) {
            mostAtOnce = std::max(mostAtOnce.load(), ++running);
            release.acquire();
            order.append(job.arguments.constFirst());
            --running;
            return ReportOutcome{0, false, job.arguments.constFirst().toUtf8(), {}};
        },
        2);
    queue.submit(QStringLiteral("a"), {{QStringLiteral("first")}});
    while (queue.await(QStringLiteral("a"), 1ms).phase != Phase::Running) { }
    EXPECT_EQ(queue.submit(QStringLiteral("b"), {{QStringLiteral("second")}}).ahead, 1);
    EXPECT_EQ(queue.submit(QStringLiteral("c"), {{QStringLiteral("third")}}).ahead, 2);
    // A page that asks again finds its place, and no second run.
    EXPECT_EQ(queue.submit(QStringLiteral("b"), {{QStringLiteral("again")}}).ahead, 1);
    EXPECT_EQ(queue.submit(QStringLiteral("d"), {{QStringLiteral("fourth")}}).phase, Phase::Full);
    EXPECT_EQ(queue.await(QStringLiteral("c"), 20ms).phase, Phase::Waiting);

    release.release(3);
    const ReportQueue::State done = queue.await(QStringLiteral("c"), 10s);
    ASSERT_EQ(done.phase, Phase::Done);
    EXPECT_EQ(done.outcome->output, "third");
    EXPECT_EQ(order, (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}));
    EXPECT_EQ(mostAtOnce, 1);
    // A done report is kept for the pages that sort or download it.
    EXPECT_EQ(queue.submit(QStringLiteral("a"), {{QStringLiteral("first")}}).outcome->output, "first");
}

} // namespace
} // namespace qlon::web

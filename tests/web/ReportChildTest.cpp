#include "web/ReportChild.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace qlon::web {
namespace {

// A child that hangs is stopped at its time limit, and one that crashes gives no figures; the
// server itself goes on either way.
TEST(ReportChildTest, AHangingOrCrashingReportEndsWithoutFigures)
{
    QElapsedTimer clock;
    clock.start();
    const ReportOutcome hung = ReportChild(QStringLiteral("/bin/sleep"), {QStringLiteral("30")}, std::chrono::seconds(1))({});
    EXPECT_TRUE(hung.timedOut);
    EXPECT_EQ(hung.status, -1);
    EXPECT_LT(clock.elapsed(), 10000);

    const ReportOutcome crashed = ReportChild(
        QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("echo partial; kill -SEGV $$")}, std::chrono::seconds(30))({});
    EXPECT_FALSE(crashed.timedOut);
    EXPECT_EQ(crashed.status, -1);
    EXPECT_TRUE(crashed.output.isEmpty());

    const ReportOutcome printed =
        ReportChild(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("echo \"$0 $1\"; echo note >&2; exit 2")},
            std::chrono::seconds(30))({{QStringLiteral("report"), QStringLiteral("main")}});
    EXPECT_EQ(printed.status, 2);
    EXPECT_EQ(printed.output, "report main\n");
    EXPECT_EQ(printed.log, QStringLiteral("note\n"));
}

} // namespace
} // namespace qlon::web

#include "platform/ProgramStart.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

class ProgramStartTest : public ::testing::Test
{
protected:
    void TearDown() override { SetProgramStarter({}); }

    // A machine on which only the named programs are installed, under /opt/bin.
    void installOnly(const QStringList &installed, bool starts = true)
    {
        SetProgramStarter(
            {[installed](const QString &name) { return installed.contains(name) ? QStringLiteral("/opt/bin/") + name : QString(); },
                [this, starts](const QString &program, const QStringList &) {
                    started.append(program);
                    return starts;
                }});
    }

    QStringList started;
};

TEST_F(ProgramStartTest, TheFirstKeyboardInstalledIsStarted)
{
#ifdef Q_OS_WIN
    installOnly({QStringLiteral("osk")});
    EXPECT_TRUE(StartOnScreenKeyboard());
    EXPECT_EQ(started, QStringList{QStringLiteral("/opt/bin/osk")});
#else
    installOnly({QStringLiteral("xvkbd"), QStringLiteral("florence")});
    EXPECT_TRUE(StartOnScreenKeyboard());
    EXPECT_EQ(started, QStringList{QStringLiteral("/opt/bin/florence")});
    installOnly({QStringLiteral("onboard"), QStringLiteral("florence")});
    EXPECT_TRUE(StartOnScreenKeyboard());
    EXPECT_EQ(started.last(), QStringLiteral("/opt/bin/onboard"));
#endif
}

TEST_F(ProgramStartTest, NoKeyboardOrOneThatWontStartIsAFailure)
{
    installOnly({});
    EXPECT_FALSE(StartOnScreenKeyboard());
    EXPECT_TRUE(started.isEmpty());
    installOnly({QStringLiteral("onboard"), QStringLiteral("osk")}, false);
    EXPECT_FALSE(StartOnScreenKeyboard());
    EXPECT_EQ(started.size(), 1);
}

} // namespace
} // namespace qlon

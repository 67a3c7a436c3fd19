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
    const QString fixedPlace = QStringLiteral("c:\\Windows\\system32\\osk.exe");
    installOnly({fixedPlace, QStringLiteral("osk")});
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::Started);
    EXPECT_EQ(started, QStringList{QStringLiteral("/opt/bin/") + fixedPlace});
    installOnly({QStringLiteral("osk")});
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::Started);
    EXPECT_EQ(started.last(), QStringLiteral("/opt/bin/osk")) << "one found on the path";
#else
    installOnly({QStringLiteral("xvkbd"), QStringLiteral("florence")});
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::Started);
    EXPECT_EQ(started, QStringList{QStringLiteral("/opt/bin/florence")});
    installOnly({QStringLiteral("onboard"), QStringLiteral("florence")});
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::Started);
    EXPECT_EQ(started.last(), QStringLiteral("/opt/bin/onboard"));
#endif
}

#ifndef Q_OS_WIN
TEST_F(ProgramStartTest, PrinterSettingsAreTheDesktopsOrTheServicesPagesInABrowser)
{
    const QString windows = QStringLiteral("rundll32 shell32.dll,Control_RunDLL Main.CPL,Printers");
    installOnly({QStringLiteral("xdg-open"), QStringLiteral("gnome-control-center")});
    EXPECT_EQ(StartPrinterSettings(windows), ProgramStart::Started);
    EXPECT_EQ(started, QStringList{QStringLiteral("/opt/bin/gnome-control-center")});
    installOnly({QStringLiteral("xdg-open")});
    EXPECT_EQ(StartPrinterSettings(windows), ProgramStart::Started);
    EXPECT_EQ(started.last(), QStringLiteral("/opt/bin/xdg-open"));
    installOnly({QStringLiteral("rundll32")});
    EXPECT_EQ(StartPrinterSettings(windows), ProgramStart::NoneInstalled);
}
#endif

TEST_F(ProgramStartTest, AKeyboardThatWontStartIsToldApartFromNoKeyboard)
{
    installOnly({});
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::NoneInstalled);
    EXPECT_TRUE(started.isEmpty());
    installOnly({QStringLiteral("onboard"), QStringLiteral("osk")}, false);
    EXPECT_EQ(StartOnScreenKeyboard(), ProgramStart::FailedToStart);
    EXPECT_EQ(started.size(), 1) << "the first found is the only one tried";
}

} // namespace
} // namespace qlon

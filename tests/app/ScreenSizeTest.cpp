// Every screen of the program fits a 1024 x 768 display with room for the desktop's panel.
#include "app/Screens.h"
#include "demo/DemoSite.h"
#include "store/SiteConfig.h"
#include "tests/support/TempSite.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ScreenSizeTest, EveryScreenFitsA1024By768Display)
{
    const test::TempSite site;
    WriteDemoSite(site.driveFolder(), QDate(2026, 11, 23));
    RegisterScreens();
    TouchScreen(QStringLiteral("QLONlistBuilder1"));
    for (const QString &name : Screens().names()) {
        const QWidget *screen = TouchScreen(name);
        ASSERT_NE(screen, nullptr) << name.toStdString();
        const QSize least = screen->minimumSizeHint().expandedTo(screen->minimumSize());
        EXPECT_LE(least.width(), 1000) << name.toStdString();
        EXPECT_LE(least.height(), name == QLatin1String("TCEmployee") ? 700 : 720) << name.toStdString();
        EXPECT_LE(screen->width(), 1024) << name.toStdString();
        EXPECT_LE(screen->height(), 740) << name.toStdString();
    }
    Screens().clear();
}

} // namespace
} // namespace qlon

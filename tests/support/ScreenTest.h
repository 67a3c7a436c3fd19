#pragma once

#include "listbuilder/QLONlistBuilder1.h"
#include "store/IniRec2300.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "tests/support/TempSite.h"
#include "ui/ScreenRegistry.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

namespace qlon::test {

// Lets the event loop run for a while, as the timers of a screen need.
inline void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

// A test of the program's screens on a temporary site. The test's main starts each test with
// the program's globals afresh and leaves no screen loaded after it.
class ScreenTest : public ::testing::Test
{
protected:
    // The main screen, with a bare stand-in for its hidden worker.
    static void registerMainScreenAlone()
    {
        Screens().add(QStringLiteral("QLONlistBuilder1"), [] { return new QLONlistBuilder1; });
        Screens().add(QStringLiteral("QLONlistBuilder2"), [] { return new QWidget; });
    }

    // The two files a start-up reads: the site's configuration with its data root, which is also
    // the employee root as on a normal site, and the list's last dates.
    void writeConfiguration(QByteArrayView dataRoot, const QByteArray &listDates) const
    {
        IniRec2300 configuration;
        configuration.setField(IniRec2300::DataRootField, dataRoot);
        configuration.setField(IniRec2300::EmployeeRootField, dataRoot);
        site.write(QStringLiteral("Quillon/QlonINI.dat"), configuration.bytes());
        site.write(QStringLiteral("Quillon/data/ListbuilderINI.dat"), listDates);
    }

    TempSite site;
};

} // namespace qlon::test

#include "ui/SiteChooser.h"
#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "tests/support/ShownMessages.h"
#include "ui/Dialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(SiteChooserTest, TheFirstStartAsksUntilAFolderHoldsTheSiteAndRemembersIt)
{
    const QTemporaryDir share;
    ASSERT_TRUE(QDir(share.path()).mkpath(QStringLiteral("Quillon")));
    QFile configuration(share.filePath(QStringLiteral("Quillon/QlonINI.dat")));
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    const SiteSettings settings(share.filePath(QStringLiteral("config/qlon.ini")));

    Dialogs::queueFolder(share.filePath(QStringLiteral("config")));
    Dialogs::queueFolder(share.filePath(QStringLiteral("Quillon")));
    EXPECT_TRUE(AskForSite(nullptr, settings));
    const QString shown = test::ShownMessages();
    EXPECT_EQ(shown.count(QStringLiteral("folder: Where is the site?")), 2) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("config holds no Quillon\\QlonINI.dat."))) << shown.toStdString();
    EXPECT_TRUE(SiteFound());
    EXPECT_EQ(settings.drives(), QStringList{QStringLiteral("C=") + share.path()});

    SitePaths().mapDrive(QLatin1Char('C'), PathMap::defaultFolder(QLatin1Char('C')));
    EXPECT_FALSE(AskForSite(nullptr, settings)) << "cancelled";
    EXPECT_FALSE(SiteFound());
}

} // namespace
} // namespace qlon

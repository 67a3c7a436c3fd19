#include "platform/SiteSettings.h"
#include "platform/PathMap.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(SiteSettingsTest, SavedDrivesComeBackAndTheCommandLineWinsLetterByLetter)
{
    const QTemporaryDir folder;
    const SiteSettings settings(folder.filePath(QStringLiteral("qlon/qlon.ini")));
    EXPECT_TRUE(settings.drives().isEmpty());
    settings.saveDrive(QStringLiteral("C=/srv/old"));
    settings.saveDrive(QStringLiteral("D=/mnt/site"));
    settings.saveDrive(QStringLiteral("c=/srv/pos"));
    EXPECT_EQ(settings.drives(), QStringList({QStringLiteral("D=/mnt/site"), QStringLiteral("c=/srv/pos")}));

    SitePaths().mapDrive(QStringLiteral("C=/srv/given"));
    settings.apply({QStringLiteral("c=/srv/given")});
    EXPECT_EQ(SitePaths().folderOf(QLatin1Char('C')), QStringLiteral("/srv/given"));
    EXPECT_EQ(SitePaths().folderOf(QLatin1Char('D')), QStringLiteral("/mnt/site"));
    for (const QChar drive : {QLatin1Char('C'), QLatin1Char('D')})
        SitePaths().mapDrive(drive, PathMap::defaultFolder(drive));
}

TEST(SiteSettingsTest, APickedFolderIsTheShareOrItsQuillonFolder)
{
    const QTemporaryDir share;
    ASSERT_TRUE(QDir(share.path()).mkpath(QStringLiteral("quillon")));
    QFile configuration(share.filePath(QStringLiteral("quillon/QLONINI.DAT")));
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    const QString drive = QStringLiteral("C=") + share.path();
    EXPECT_EQ(SiteDriveOf(share.path()), drive);
    EXPECT_EQ(SiteDriveOf(share.filePath(QStringLiteral("quillon"))), drive) << "the Quillon folder maps its parent";
    EXPECT_EQ(SiteDriveOf(share.filePath(QStringLiteral("quillon/.."))), drive);
    ASSERT_TRUE(QDir(share.path()).mkpath(QStringLiteral("other/Quillon")));
    EXPECT_EQ(SiteDriveOf(share.filePath(QStringLiteral("other"))), QString()) << "a Quillon folder without the configuration";
    EXPECT_EQ(SiteDriveOf(share.filePath(QStringLiteral("other/Quillon"))), QString());

    EXPECT_FALSE(SiteFound());
    SitePaths().mapDrive(drive);
    EXPECT_TRUE(SiteFound());
    SitePaths().mapDrive(QLatin1Char('C'), PathMap::defaultFolder(QLatin1Char('C')));
}

} // namespace
} // namespace qlon

#include "ui/SiteChooser.h"
#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "ui/Dialogs.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// The site question says what it wants, checks each folder with the reason shown, and can write a
// demonstration site to try.
TEST(SiteChooserTest, TheSiteQuestionChecksTheFolderAndOffersADemoSite)
{
    const QTemporaryDir share;
    ASSERT_TRUE(QDir(share.path()).mkpath(QStringLiteral("Quillon")));
    QFile configuration(share.filePath(QStringLiteral("Quillon/QlonINI.dat")));
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    const QString gone = share.filePath(QStringLiteral("unmounted"));

    SiteDialog dialog(nullptr, gone, [&] { return share.path(); });
    EXPECT_TRUE(dialog.lblAbout->text().contains(QStringLiteral("Quillon\\QlonINI.dat")));
    EXPECT_EQ(dialog.lblRemembered->text(), QStringLiteral("The site used last time, %1, isn't there: is the share mounted?").arg(gone));
    EXPECT_EQ(dialog.lblCheck->text(), gone + QStringLiteral(" isn't there."));
    EXPECT_FALSE(dialog.cmdOK->isEnabled());

    Dialogs::queueFolder(share.filePath(QStringLiteral("Quillon")));
    dialog.cmdBrowse->click();
    EXPECT_TRUE(dialog.cmdOK->isEnabled());
    EXPECT_EQ(dialog.chosenDrive(), QStringLiteral("C=") + share.path()) << "the Quillon folder stands for its parent";

    ASSERT_TRUE(QDir(share.path()).mkpath(QStringLiteral("Quillon/data")));
    dialog.txtFolder->setText(share.filePath(QStringLiteral("Quillon/data")));
    EXPECT_TRUE(dialog.lblCheck->text().endsWith(QStringLiteral(" holds no Quillon\\QlonINI.dat.")))
        << dialog.lblCheck->text().toStdString();
    EXPECT_EQ(dialog.chosenDrive(), QString());

    dialog.cmdDemo->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted) << "the demonstration site is taken at once";
    EXPECT_EQ(dialog.chosenDrive(), QStringLiteral("C=") + share.path());
}

TEST(SiteChooserTest, TheRememberedSiteIsTheSavedDriveC)
{
    const QTemporaryDir home;
    const SiteSettings settings(home.filePath(QStringLiteral("config/qlon.ini")));
    EXPECT_EQ(RememberedSiteFolder(settings), QString());
    settings.saveDrive(QStringLiteral("D=/srv/second"));
    settings.saveDrive(QStringLiteral("C=/srv/pos"));
    EXPECT_EQ(RememberedSiteFolder(settings), QStringLiteral("/srv/pos"));
}

} // namespace
} // namespace qlon

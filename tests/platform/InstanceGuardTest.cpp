#include "platform/InstanceGuard.h"
#include "platform/PathMap.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

#include <sys/wait.h>
#include <unistd.h>

namespace qlon {
namespace {

PathMap siteAt(const QString &driveFolder)
{
    PathMap paths;
    paths.mapDrive(QLatin1Char('C'), driveFolder);
    return paths;
}

// Another program: true when its guard on the site finds an instance already running.
bool anotherProgramSeesOne(const QString &driveFolder, const QString &tempFolder)
{
    const pid_t program = fork();
    if (program == 0) {
        qputenv("TMPDIR", tempFolder.toLocal8Bit());
        _exit(InstanceGuard(siteAt(driveFolder)).anotherInstanceRuns() ? 1 : 0);
    }
    int status = -1;
    waitpid(program, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

class InstanceGuardTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("TMPDIR", ownTemp.path().toLocal8Bit());
        QDir(site.path()).mkpath(QStringLiteral("QUILLON/temp"));
        QDir(otherSite.path()).mkpath(QStringLiteral("Quillon/Temp"));
        QFile::link(site.path(), link());
    }
    void TearDown() override
    {
        if (savedTemp)
            qputenv("TMPDIR", *savedTemp);
        else
            qunsetenv("TMPDIR");
    }

    QString link() const { return links.filePath(QStringLiteral("site")); }

    const std::optional<QByteArray> savedTemp = qEnvironmentVariableIsSet("TMPDIR") ? std::optional(qgetenv("TMPDIR")) : std::nullopt;
    QTemporaryDir site;
    QTemporaryDir otherSite;
    QTemporaryDir links;
    QTemporaryDir ownTemp;
    QTemporaryDir otherTemp;
};

// The stations' share sees the lock in the site's own Temp folder, whatever path or temp folder
// each program names it by.
TEST_F(InstanceGuardTest, ASiteIsClaimedInItsTempFolderWhateverPathOrTempFolderNamesIt)
{
    const InstanceGuard first(siteAt(site.path()));
    ASSERT_FALSE(first.anotherInstanceRuns());
    EXPECT_TRUE(anotherProgramSeesOne(link(), otherTemp.path())) << "through a link, with another temp folder";
    EXPECT_FALSE(anotherProgramSeesOne(otherSite.path(), ownTemp.path())) << "another site";
    EXPECT_EQ(QDir(site.filePath(QStringLiteral("QUILLON/temp"))).entryList(QDir::Files), QStringList{QStringLiteral("qlon.lock")});
    EXPECT_TRUE(QDir(ownTemp.path()).isEmpty());
}

TEST_F(InstanceGuardTest, AProgramThatDiedLeavesNoRunningInstance)
{
    int claimed[2];
    ASSERT_EQ(pipe(claimed), 0);
    const pid_t program = fork();
    if (program == 0) {
        const InstanceGuard guard(siteAt(site.path()));
        char answer = guard.anotherInstanceRuns() ? 'n' : 'y';
        if (write(claimed[1], &answer, 1) == 1)
            pause();
        _exit(1);
    }
    char answer = 0;
    ASSERT_EQ(read(claimed[0], &answer, 1), 1);
    ASSERT_EQ(answer, 'y');
    EXPECT_TRUE(InstanceGuard(siteAt(site.path())).anotherInstanceRuns());
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    EXPECT_FALSE(InstanceGuard(siteAt(site.path())).anotherInstanceRuns());
}

// A site whose Temp folder can't take the lock, or that is missing, still starts one program,
// held on this machine by the site's real folder.
TEST_F(InstanceGuardTest, WithoutAWritableTempFolderTheSitesRealFolderIsClaimedOnThisMachine)
{
    QDir(site.filePath(QStringLiteral("QUILLON/temp"))).removeRecursively();
    QFile(site.filePath(QStringLiteral("QUILLON/temp"))).open(QIODevice::WriteOnly);
    const QString missing = otherSite.filePath(QStringLiteral("gone"));
    for (const QString &folder : {site.path(), missing}) {
        const InstanceGuard first(siteAt(folder));
        ASSERT_FALSE(first.anotherInstanceRuns()) << folder.toStdString();
        EXPECT_TRUE(anotherProgramSeesOne(folder == missing ? folder + QStringLiteral("/../gone") : link(), ownTemp.path()))
            << folder.toStdString();
    }
    EXPECT_EQ(QDir(site.filePath(QStringLiteral("QUILLON"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList{QStringLiteral("temp")});
    EXPECT_FALSE(QFileInfo::exists(missing));
    EXPECT_EQ(QDir(ownTemp.path()).entryList(QDir::Files).size(), 2) << "one lock for each site";
}

} // namespace
} // namespace qlon

#include "platform/PathMap.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

void touch(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

class PathMapTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        paths.mapDrive(QLatin1Char('c'), root.path());
        touch(root.filePath(QStringLiteral("Quillon/data/LiqModifiers.dat")));
        touch(root.filePath(QStringLiteral("Quillon/Temp/TempInv.dat")));
    }

    QTemporaryDir root;
    PathMap paths;
};

TEST_F(PathMapTest, FindsEveryNameWithoutRegardToCase)
{
    const QString expected = root.filePath(QStringLiteral("Quillon/data/LiqModifiers.dat"));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\Quillon\\data\\liqModifiers.dat")), expected);
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\QUILLON\\DATA\\LIQMODIFIERS.DAT")), expected);
    EXPECT_EQ(paths.toHost(QStringLiteral("c:/quillon/data/LiqModifiers.dat")), expected);
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\Quillon\\\\temp\\tempinv.DAT")), root.filePath(QStringLiteral("Quillon/Temp/TempInv.dat")));
}

TEST_F(PathMapTest, NewNamesKeepTheProgramsSpelling)
{
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\QUILLON\\TempItems.dat")), root.filePath(QStringLiteral("Quillon/TempItems.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\QUILLON\\New\\Deeper.dat")), root.filePath(QStringLiteral("Quillon/New/Deeper.dat")));
}

TEST_F(PathMapTest, PrefersTheExactSpellingAmongSeveral)
{
    touch(root.filePath(QStringLiteral("Quillon/data/liqModifiers.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\Quillon\\data\\liqModifiers.dat")),
        root.filePath(QStringLiteral("Quillon/data/liqModifiers.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\Quillon\\data\\LiqModifiers.dat")),
        root.filePath(QStringLiteral("Quillon/data/LiqModifiers.dat")));
}

// A folder is listed once and kept; a name that isn't in the listing kept is looked for afresh,
// so files and folders made after the listing are found in any spelling.
TEST_F(PathMapTest, NamesMadeAfterTheirFolderWasListedAreFound)
{
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\quillon\\data\\liqmodifiers.dat")),
        root.filePath(QStringLiteral("Quillon/data/LiqModifiers.dat")));
    EXPECT_EQ(
        paths.toHost(QStringLiteral("c:\\quillon\\data\\beerdraft.dat")), root.filePath(QStringLiteral("Quillon/data/beerdraft.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\quillon\\new\\x.dat")), root.filePath(QStringLiteral("Quillon/new/x.dat")));

    touch(root.filePath(QStringLiteral("Quillon/data/BeerDraft.dat")));
    touch(root.filePath(QStringLiteral("Quillon/New/X.dat")));
    EXPECT_EQ(
        paths.toHost(QStringLiteral("c:\\quillon\\data\\beerdraft.dat")), root.filePath(QStringLiteral("Quillon/data/BeerDraft.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\quillon\\new\\x.dat")), root.filePath(QStringLiteral("Quillon/New/X.dat")));

    touch(root.filePath(QStringLiteral("Quillon/data/beerdraft.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("c:\\quillon\\data\\beerdraft.dat")), root.filePath(QStringLiteral("Quillon/data/beerdraft.dat")))
        << "the exact spelling still wins";
}

TEST_F(PathMapTest, AFolderWithoutTrailingBackslashJoinsIntoTheName)
{
    // "D:\SITE" + "data\Departments.dat" names a folder SITEdata: the joining is plain.
    QTemporaryDir drive;
    paths.mapDrive(QStringLiteral("D=") + drive.path());
    EXPECT_EQ(paths.toHost(QStringLiteral("D:\\SITEdata\\Departments.dat")), drive.filePath(QStringLiteral("SITEdata/Departments.dat")));
}

TEST_F(PathMapTest, DriveOptionsAndDefaults)
{
    PathMap fresh;
    EXPECT_TRUE(fresh.mapDrive(QStringLiteral("e=/srv/pos")));
    EXPECT_TRUE(fresh.mapDrive(QStringLiteral("F:=/srv/other/")));
    EXPECT_EQ(fresh.folderOf(QLatin1Char('E')), QStringLiteral("/srv/pos"));
    EXPECT_EQ(fresh.folderOf(QLatin1Char('f')), QStringLiteral("/srv/other"));
    EXPECT_EQ(fresh.folderOf(QLatin1Char('G')), PathMap::defaultFolder(QLatin1Char('G')));
    for (const char *bad : {"", "C", "CC=/x", "=/x", "C=", "1=/x"})
        EXPECT_FALSE(fresh.mapDrive(QString::fromLatin1(bad))) << bad;
}

TEST_F(PathMapTest, NoPathLeadsOutOfTheMappedFolders)
{
    const QString site = root.filePath(QStringLiteral("Quillon"));
    EXPECT_EQ(paths.toHost(QStringLiteral("ExportSales.CSV")), root.filePath(QStringLiteral("ExportSales.CSV")))
        << "a path without a drive lies on drive C:, not in the working folder";
    EXPECT_EQ(paths.toHost(QStringLiteral("\\Quillon\\Temp")), root.filePath(QStringLiteral("Quillon/Temp")));
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\..\\ESCAPE\\x.dat")), root.filePath(QStringLiteral("ESCAPE/x.dat")));
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\Quillon\\..\\..\\..\\etc")), root.filePath(QStringLiteral("etc")));
    EXPECT_EQ(paths.toHost(QStringLiteral("..\\..\\x")), root.filePath(QStringLiteral("x")));
    EXPECT_EQ(paths.toHost(QStringLiteral("C:\\Quillon\\data\\..\\Temp\\TempInv.dat")), site + QStringLiteral("/Temp/TempInv.dat"));
}

} // namespace
} // namespace qlon

#include "core/FileTable.h"
#include "platform/FileLock.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(FileTableTest, CloseAllReleasesFilesAndLocksWhoeverOpenedThem)
{
    test::TempSite site;
    const QString path = site.write(QStringLiteral("QlonINI.dat"), QByteArray(2300, ' '));
    Files().OpenRandom(2, path, 2300).LockAll();
    Files().OpenText(1, site.hostPath(QStringLiteral("out.txt")), TextFile::Mode::Output).PrintLine("x");

    QFile other(path);
    ASSERT_TRUE(other.open(QIODevice::ReadOnly));
    EXPECT_TRUE(FileLock::isLockedElsewhere(other));
    EXPECT_THROW(RecordFile(path, 2300).LockAll(), RuntimeError);

    CloseAll();
    EXPECT_EQ(Files().openCount(), 0u);
    EXPECT_FALSE(FileLock::isLockedElsewhere(other));
    EXPECT_EQ(site.read(QStringLiteral("out.txt")), "x\r\n");
}

TEST(FileTableTest, NumbersAreCheckedAsThePlatformDid)
{
    test::TempSite site;
    Files().OpenRandom(1, site.hostPath(QStringLiteral("a.dat")), 500);
    try {
        Files().OpenRandom(1, site.hostPath(QStringLiteral("b.dat")), 500);
        FAIL() << "a number opened twice";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::FileAlreadyOpen);
    }
    EXPECT_THROW(Files().textFile(1), RuntimeError) << "number 1 is a record file";
    EXPECT_THROW(Files().recordFile(3), RuntimeError);
    Files().Close(1);
    EXPECT_FALSE(Files().isOpen(1));
}

} // namespace
} // namespace qlon

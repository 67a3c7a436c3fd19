#include "platform/FileLock.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifndef Q_OS_WIN
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace qlon {
namespace {

#ifndef Q_OS_WIN
// Exit status of a second process that tries to lock the file: 0 when it got the lock.
int lockInAnotherProcess(const QString &path)
{
    const pid_t child = fork();
    if (child == 0) {
        QFile file(path);
        const bool locked = file.open(QIODevice::ReadWrite) && FileLock::lockWhole(file);
        _exit(locked ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(FileLockTest, AnotherProcessSeesTheWholeFileLockUntilItIsReleased)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("QlonINI.dat"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_EQ(lockInAnotherProcess(path), 0);

    ASSERT_TRUE(FileLock::lockWhole(file));
    EXPECT_EQ(lockInAnotherProcess(path), 1);

    FileLock::unlockWhole(file);
    EXPECT_EQ(lockInAnotherProcess(path), 0);

    ASSERT_TRUE(FileLock::lockWhole(file));
    file.close();
    EXPECT_EQ(lockInAnotherProcess(path), 0) << "closing the file releases its lock";
}
#endif

TEST(FileLockTest, TwoOpensWithinTheProgramExcludeEachOther)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("TempInv.dat"));
    QFile first(path);
    QFile second(path);
    ASSERT_TRUE(first.open(QIODevice::ReadWrite));
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    ASSERT_TRUE(FileLock::lockWhole(first));
    EXPECT_FALSE(FileLock::lockWhole(second));
    EXPECT_TRUE(FileLock::isLockedElsewhere(second));
}

} // namespace
} // namespace qlon

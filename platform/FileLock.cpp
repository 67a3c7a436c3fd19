#include "platform/FileLock.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#endif

namespace qlon {

namespace {
std::chrono::milliseconds stationWait{5000};
constexpr std::chrono::milliseconds retryPause{20};
} // namespace

std::chrono::milliseconds StationWait()
{
    return stationWait;
}

void SetStationWait(std::chrono::milliseconds wait)
{
    stationWait = wait;
}

bool RetryForStationWait(const std::function<bool()> &attempt)
{
    const QDeadlineTimer deadline(stationWait);
    for (;;) {
        if (attempt())
            return true;
        if (deadline.hasExpired())
            return false;
        QThread::msleep(static_cast<unsigned long>(std::min<qint64>(retryPause.count(), deadline.remainingTime())));
    }
}

bool FileLock::lockWholeWaiting(QFile &file)
{
    return RetryForStationWait([&file] { return lockWhole(file); });
}

#ifdef Q_OS_WIN

namespace {
HANDLE handleOf(QFile &file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
}
constexpr DWORD wholeFile = MAXDWORD;
} // namespace

bool FileLock::lockWhole(QFile &file)
{
    OVERLAPPED from = {};
    return LockFileEx(handleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, wholeFile, wholeFile, &from);
}

void FileLock::unlockWhole(QFile &file)
{
    OVERLAPPED from = {};
    UnlockFileEx(handleOf(file), 0, wholeFile, wholeFile, &from);
}

bool FileLock::isLockedElsewhere(QFile &file)
{
    if (!lockWhole(file))
        return true;
    unlockWhole(file);
    return false;
}

#else

namespace {

// Open-file-description locks: they belong to this open of the file, so that two opens
// within this program exclude each other as they do on the stations' platform.
struct flock wholeFileRange(short type)
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = 0;
    range.l_len = 0;
    return range;
}

short exclusiveTypeFor(const QFile &file)
{
    // A file open for reading only can hold a read lock, which still keeps writers out.
    return file.openMode().testFlag(QIODevice::WriteOnly) ? F_WRLCK : F_RDLCK;
}

} // namespace

bool FileLock::lockWhole(QFile &file)
{
    struct flock range = wholeFileRange(exclusiveTypeFor(file));
    return fcntl(file.handle(), F_OFD_SETLK, &range) == 0;
}

void FileLock::unlockWhole(QFile &file)
{
    struct flock range = wholeFileRange(F_UNLCK);
    fcntl(file.handle(), F_OFD_SETLK, &range);
}

bool FileLock::isLockedElsewhere(QFile &file)
{
    struct flock range = wholeFileRange(F_WRLCK);
    if (fcntl(file.handle(), F_OFD_GETLK, &range) != 0)
        return false;
    return range.l_type != F_UNLCK;
}

#endif

} // namespace qlon

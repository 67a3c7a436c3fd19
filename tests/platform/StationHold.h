#pragma once

// A station's hold on a file, from a process of its own: a lock on the whole file as the stations
// take it, seen by the program as another program's lock.
#include <QString>

#include <chrono>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace qlon::test {

class StationHold
{
public:
    // The file is held once the constructor returns, until the hold ends or, when `releaseAfter`
    // is given, until that time has passed.
    explicit StationHold(const QString &hostPath, std::chrono::milliseconds releaseAfter = {})
    {
        const QByteArray path = hostPath.toLocal8Bit();
        int ready[2];
        if (pipe(ready) != 0)
            return;
        m_station = fork();
        if (m_station == 0)
            holdThenExit(path.constData(), ready[1], releaseAfter);
        close(ready[1]);
        char held = 0;
        m_held = read(ready[0], &held, 1) == 1 && held == 'y';
        close(ready[0]);
    }
    ~StationHold()
    {
        if (m_station > 0) {
            kill(m_station, SIGKILL);
            waitpid(m_station, nullptr, 0);
        }
    }
    StationHold(const StationHold &) = delete;
    StationHold &operator=(const StationHold &) = delete;

    bool held() const { return m_held; }

private:
    // Only calls a forked child of a threaded program may make.
    [[noreturn]] static void holdThenExit(const char *path, int ready, std::chrono::milliseconds releaseAfter)
    {
        const int file = open(path, O_RDWR);
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        const bool held = file >= 0 && fcntl(file, F_OFD_SETLK, &whole) == 0;
        const char answer = held ? 'y' : 'n';
        if (write(ready, &answer, 1) != 1 || !held)
            _exit(1);
        if (releaseAfter.count() == 0)
            for (;;)
                pause();
        const timespec wait = {time_t(releaseAfter.count() / 1000), long(releaseAfter.count() % 1000) * 1000000};
        nanosleep(&wait, nullptr);
        _exit(0);
    }

    pid_t m_station = -1;
    bool m_held = false;
};

} // namespace qlon::test

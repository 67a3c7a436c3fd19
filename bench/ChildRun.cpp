#include "bench/ChildRun.h"

#include "bench/BenchSites.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryFile>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>

#include <stdexcept>
#include <vector>

extern char **environ;

namespace qlon::bench {

ChildCost RunChild(const QString &program, const QStringList &arguments)
{
    // GNU time forks the program itself: a child spawned from this process would count this
    // process's resident set as its own peak, as the kernel keeps the peak across exec. Its CPU
    // times come in hundredths, too coarse for a start-up, so those are taken from the kernel's
    // account of it and its child, to the microsecond; GNU time's own share is about 1 ms.
    QTemporaryFile report;
    if (!report.open())
        throw std::runtime_error("can't make the time report");
    std::vector<QByteArray> texts{"/usr/bin/time", "-f", "%M", "-o", QFile::encodeName(report.fileName()), QFile::encodeName(program)};
    for (const QString &argument : arguments)
        texts.push_back(QFile::encodeName(argument));
    std::vector<char *> argv;
    for (QByteArray &text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    QElapsedTimer clock;
    clock.start();
    pid_t child = 0;
    const int spawned = posix_spawn(&child, argv.front(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0)
        throw std::runtime_error("can't start /usr/bin/time");
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    ChildCost cost;
    cost.wallSeconds = double(clock.nsecsElapsed()) / 1e9;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(program.toStdString() + " failed");
    bool read = false;
    const double peakKiB = report.readAll().trimmed().toDouble(&read);
    if (!read)
        throw std::runtime_error("no time report for " + program.toStdString());
    const auto seconds = [](const timeval &time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    cost.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    cost.peakMiB = peakKiB / 1024.0;
    return cost;
}

ChildCost RunProgramScript(const QString &driveFolder, const QByteArray &script)
{
    QTemporaryFile file;
    if (!file.open() || file.write(script) != script.size() || !file.flush())
        throw std::runtime_error("can't write the script");
    // Another build of the program, such as the one before a change, can be measured in its place.
    const QString program = qEnvironmentVariable("QLON_BENCH_PROGRAM", QStringLiteral(QLON_PROGRAM));
    return RunChild(program,
        {QStringLiteral("--drive"), QStringLiteral("C=") + driveFolder, QStringLiteral("--today"), SalesToday.toString(Qt::ISODate),
            QStringLiteral("--script"), file.fileName()});
}

double OwnCpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

} // namespace qlon::bench

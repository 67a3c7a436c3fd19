#pragma once

#include <QString>
#include <QStringList>

namespace qlon::bench {

// What a whole process cost, as the kernel counted it when it ended.
struct ChildCost
{
    double cpuSeconds = 0; // user and system time
    double wallSeconds = 0;
    double peakMiB = 0; // the largest resident set
};

// Runs the program to its end, its output thrown away; a status other than 0 throws.
ChildCost RunChild(const QString &program, const QStringList &arguments);

// The program itself, driven by a script from start to end over the site of `driveFolder`; the
// program at QLON_BENCH_PROGRAM when that is set.
ChildCost RunProgramScript(const QString &driveFolder, const QByteArray &script);

// The CPU time this process has used so far, in seconds.
double OwnCpuSeconds();

} // namespace qlon::bench

#include "web/ReportChild.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <pthread.h>

namespace qlon::web {

ReportChild::ReportChild(QString program, QStringList siteArguments, std::chrono::seconds timeLimit)
    : m_program(std::move(program))
    , m_siteArguments(std::move(siteArguments))
    , m_timeLimit(timeLimit)
{
}

ReportOutcome ReportChild::operator()(const ReportJob &job) const
{
    ReportOutcome outcome;
    // A file the report writes goes into a folder of this run alone, removed with it.
    const QTemporaryDir folder;
    QStringList arguments = m_siteArguments + job.arguments;
    QString file;
    if (job.file != ReportJob::File::None) {
        file = folder.filePath(job.file == ReportJob::File::Csv ? QStringLiteral("report.csv") : QStringLiteral("report.pdf"));
        arguments.append((job.file == ReportJob::File::Csv ? QStringLiteral("--csv=") : QStringLiteral("--pdf=")) + file);
    }
    QProcess child;
    child.setProgram(m_program);
    child.setArguments(arguments);
    child.setStandardInputFile(QProcess::nullDevice());
    // The server waits for its ending signals in one thread and blocks them elsewhere; a report
    // takes them as any program does.
    child.setChildProcessModifier([] {
        sigset_t none;
        sigemptyset(&none);
        pthread_sigmask(SIG_SETMASK, &none, nullptr);
    });
    child.start();
    if (!child.waitForStarted()) {
        outcome.log = QStringLiteral("can't start %1: %2").arg(m_program, child.errorString());
        return outcome;
    }
    if (!child.waitForFinished(int(std::chrono::milliseconds(m_timeLimit).count()))) {
        child.kill();
        child.waitForFinished();
        outcome.timedOut = true;
    }
    outcome.log = QString::fromLocal8Bit(child.readAllStandardError());
    const QByteArray printed = child.readAllStandardOutput();
    if (outcome.timedOut || child.exitStatus() != QProcess::NormalExit)
        return outcome;
    outcome.status = child.exitCode();
    if (file.isEmpty()) {
        outcome.output = printed;
    } else if (QFile written(file); written.open(QIODevice::ReadOnly)) {
        outcome.output = written.readAll();
    }
    return outcome;
}

} // namespace qlon::web

#include "platform/ProgramStart.h"

#include <QList>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#ifndef Q_OS_WIN
#include <cerrno>
#include <cstring>
#include <unistd.h>
#endif

namespace qlon {

namespace {

ProgramStarter hostStarter()
{
    return {[](const QString &name) { return QStandardPaths::findExecutable(name); },
        [](const QString &program, const QStringList &arguments) { return QProcess::startDetached(program, arguments); }};
}

ProgramStarter &starter()
{
    static ProgramStarter current = hostStarter();
    return current;
}

} // namespace

void SetProgramStarter(ProgramStarter replacement)
{
    starter() = replacement.find && replacement.start ? std::move(replacement) : hostStarter();
}

namespace {

// The first of the programs that is installed, started with its arguments.
ProgramStart startFirstInstalled(const QList<QStringList> &commands)
{
    const ProgramStarter &host = starter();
    for (const QStringList &command : commands) {
        const QString program = host.find(command.constFirst());
        if (!program.isEmpty())
            return host.start(program, command.mid(1)) ? ProgramStart::Started : ProgramStart::FailedToStart;
    }
    return ProgramStart::NoneInstalled;
}

QStringList commandOf(const QString &line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

ProgramStart StartOnScreenKeyboard()
{
#ifdef Q_OS_WIN
    return startFirstInstalled({{QStringLiteral("c:\\Windows\\system32\\osk.exe")}, {QStringLiteral("osk")}});
#else
    return startFirstInstalled(
        {{QStringLiteral("onboard")}, {QStringLiteral("florence")}, {QStringLiteral("matchbox-keyboard")}, {QStringLiteral("xvkbd")}});
#endif
}

ProgramStart StartPrinterSettings(const QString &windowsCommand)
{
#ifdef Q_OS_WIN
    return startFirstInstalled({commandOf(windowsCommand)});
#else
    Q_UNUSED(windowsCommand);
    return startFirstInstalled({{QStringLiteral("system-config-printer")}, commandOf(QStringLiteral("gnome-control-center printers")),
        commandOf(QStringLiteral("kcmshell6 kcm_printer_manager")), commandOf(QStringLiteral("kcmshell5 kcm_printer_manager")),
        commandOf(QStringLiteral("xdg-open http://localhost:631/printers/"))});
#endif
}

int RunInPlace(const QString &program, char *argv[])
{
#ifdef Q_OS_WIN
    QStringList arguments;
    for (char **argument = argv + 1; *argument; ++argument)
        arguments.append(QString::fromLocal8Bit(*argument));
    const int status = QProcess::execute(program, arguments);
    if (status >= 0)
        return status;
    const QString reason = QStringLiteral("it can't be started");
#else
    const QByteArray path = program.toLocal8Bit();
    argv[0] = const_cast<char *>(path.constData());
    execv(path.constData(), argv);
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
#endif
    QTextStream(stderr) << "qlon: can't run " << program << ": " << reason << Qt::endl;
    return 1;
}

} // namespace qlon

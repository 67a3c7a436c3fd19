#include "platform/ProgramStart.h"

#include <QProcess>
#include <QStandardPaths>

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

KeyboardStart StartOnScreenKeyboard()
{
#ifdef Q_OS_WIN
    const char *const keyboards[] = {"c:\\Windows\\system32\\osk.exe", "osk"};
#else
    const char *const keyboards[] = {"onboard", "florence", "matchbox-keyboard", "xvkbd"};
#endif
    const ProgramStarter &host = starter();
    for (const char *name : keyboards) {
        const QString keyboard = host.find(QString::fromLatin1(name));
        if (!keyboard.isEmpty())
            return host.start(keyboard, {}) ? KeyboardStart::Started : KeyboardStart::FailedToStart;
    }
    return KeyboardStart::NoneInstalled;
}

} // namespace qlon

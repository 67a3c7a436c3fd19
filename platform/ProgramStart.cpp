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

bool StartOnScreenKeyboard()
{
#ifdef Q_OS_WIN
    const char *const keyboards[] = {"osk"};
#else
    const char *const keyboards[] = {"onboard", "florence", "matchbox-keyboard", "xvkbd"};
#endif
    const ProgramStarter &host = starter();
    for (const char *name : keyboards) {
        const QString keyboard = host.find(QString::fromLatin1(name));
        if (!keyboard.isEmpty())
            return host.start(keyboard, {});
    }
    return false;
}

} // namespace qlon

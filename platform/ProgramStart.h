#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace qlon {

// How the program starts other programs: where it finds one by name, and how it starts it
// without waiting. Tests put a fake in place of the host's.
struct ProgramStarter
{
    std::function<QString(const QString &name)> find; // the program's path, or empty when it isn't there
    std::function<bool(const QString &program, const QStringList &arguments)> start;
};

// The host's starter in place again when `starter` has no parts.
void SetProgramStarter(ProgramStarter starter);

enum class ProgramStart {
    Started,
    FailedToStart,
    NoneInstalled,
};

// Starts the system's on-screen keyboard: Windows' own, at its fixed place or on the path,
// elsewhere the first of the desktops' keyboards that is installed, onboard first.
ProgramStart StartOnScreenKeyboard();

// Opens the system's printer settings: on Windows `windowsCommand` (the control panel's), elsewhere
// the first of the desktops' printer settings that is installed, or the print service's own pages
// in the browser.
ProgramStart StartPrinterSettings(const QString &windowsCommand);

// Runs `program` in this process's place with the command line `argv`: the process keeps its id,
// its signals and its standard channels, so a service manager or a shell sees one program. Returns
// only when it can't (1, told on standard error); on Windows, where no process takes another's
// place, it runs the program and returns its status.
int RunInPlace(const QString &program, char *argv[]);

} // namespace qlon

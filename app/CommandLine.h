#pragma once

#include "app/ReportCommand.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace qlon {

// What the command line asks of the program.
struct CommandLine
{
    QStringList driveMappings; // "C=/srv/pos", one per --drive
    QString scriptPath; // empty: the screens are shown; "-": standard input
    QStringList screenshots; // "SCREEN=PATH", one per --screenshot
    QStringList openScreens; // shown at the start in place of the main screen, one per --open
    QDate today; // fixes the clock's day when valid
    bool writeReportTemplate = false;
    QString listControls; // the screen whose controls are listed
    std::optional<ReportRequest> report; // `qlon report NAME`
    QString error; // not empty when the command line can't be used
    QString help; // not empty when help or the version was asked for

    bool scripted() const { return !scriptPath.isEmpty() || report; }
};

CommandLine ParseCommandLine(const QStringList &arguments);

// True when the arguments ask for a run without a window (a script, pictures, the template, a
// report, a list of controls);
// read before the application exists, to choose the display.
bool RunsWithoutWindow(int argc, char *argv[]);

// The command's first word (report, serve, user, sync), passing over the options and their
// values; empty when there is none.
QString CommandWord(int argc, char *argv[]);

// The program beside this one that runs the command, for the commands whose libraries the desktop
// program and its reports don't load: "qlon-serve" for serve and user, "qlon-chain" for sync and
// report --chain; empty for the others.
QString CompanionProgram(int argc, char *argv[]);

} // namespace qlon

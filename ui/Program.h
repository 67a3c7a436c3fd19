#pragma once

#include "core/RuntimeError.h"

#include <QObject>

#include <functional>

class QWidget;

namespace qlon {

// The program's title, on its error messages.
inline const QString ProgramTitle = QStringLiteral("QLONListBuilder");

// Ends the program at once: open files are closed, nothing is asked, nothing else runs but the
// ending's hook.
[[noreturn]] void EndProgram(int status);

// Runs as the program ends early, from a failure no one handles or a screen's own ending, with the
// status and the failure (none for an ending that isn't one): a run that prints one document at
// its end prints it then.
using ProgramEndHook = std::function<void(int status, const RuntimeError *failure)>;
void SetProgramEndHook(ProgramEndHook hook);

// Where an error happened, for a user: a file as the site names it and where it lies on this host.
QString WhereItHappened(const RuntimeError &error);

// Shows the platform's text of an error that no one handles, on a message box and on standard
// error, and ends the program with a non-zero status.
[[noreturn]] void EndWithError(const RuntimeError &error);

// Runs an event handler of a screen. Handlers may nest, since a long run yields to the event
// loop; a script waits until none is running.
void RunHandler(const std::function<void()> &handler);
int RunningHandlers();

// The screen of that name, created and loaded if it doesn't exist yet, as a handler would touch
// it: a load that fails ends the program with the platform's error. None for an unknown name.
QWidget *TouchScreen(const QString &name);
// Shows the screen above the others; a scripted run, which has no desktop, only shows it.
void ShowInFront(QWidget *screen);
// The screen of that name, touched, then shown above the others.
void ShowScreenInFront(const QString &name);

// A screen's "Done": started alone, the program ends, as it always did; opened from the back
// office, that screen closes, and the program ends with its last window.
void DoneWithScreen(QWidget *screen);
// From here on the back office hosts the other screens.
void HostScreensInBackOffice();

// Whether a view of our own that holds unsaved edits may close: "Save changes?", Yes saving them
// first (as a handler: a failure ends the program with the platform's error), No dropping them,
// Cancel staying.
bool MayCloseWithEdits(QWidget *view, bool hasUnsavedEdits, const std::function<void()> &save);

// A command that shows a companion screen of another program is disabled, with a tip saying so,
// when this program has no screen of that name.
void RequireCompanion(QWidget *command, const QString &companion);

// A one-shot timer of a screen; a script waits until none is pending.
void StartOneShot(QObject *context, int milliseconds, const std::function<void()> &handler);
int PendingTimers();

// Connects a signal to a handler that runs through RunHandler.
template<typename Sender, typename Signal, typename Handler>
void OnEvent(Sender *sender, Signal signal, QObject *context, Handler handler)
{
    QObject::connect(sender, signal, context, [handler] { RunHandler(handler); });
}

} // namespace qlon

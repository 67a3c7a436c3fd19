#include "ui/Program.h"

#include "core/Ansi.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "ui/Dialogs.h"
#include "ui/ScreenRegistry.h"
#include "ui/ScreenTimer.h"

#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

namespace qlon {

namespace {
int runningHandlers = 0;
int pendingTimers = 0;
ProgramEndHook endHook;

[[noreturn]] void endProgram(int status, const RuntimeError *failure)
{
    if (ProgramEndHook hook = std::exchange(endHook, {}))
        hook(status, failure);
    CloseAll();
    std::fflush(stdout);
    std::fflush(stderr);
    std::_Exit(status);
}
} // namespace

void EndProgram(int status)
{
    endProgram(status, nullptr);
}

void SetProgramEndHook(ProgramEndHook hook)
{
    endHook = std::move(hook);
}

QString WhereItHappened(const RuntimeError &error)
{
    const QByteArray sitePath = SitePathOf(error.detail());
    return sitePath.isEmpty() ? error.detail() : FromAnsi(sitePath) + QStringLiteral(", ") + error.detail();
}

void EndWithError(const RuntimeError &error)
{
    const QString where = WhereItHappened(error);
    QTextStream(stderr) << "qlon: " << error.message().simplified()
                        << (where.isEmpty() ? QString() : QStringLiteral(" (") + where + QLatin1Char(')')) << Qt::endl;
    Dialogs::showError(ProgramTitle, error.message(), where);
    endProgram(1, &error);
}

void RunHandler(const std::function<void()> &handler)
{
    ++runningHandlers;
    try {
        handler();
    } catch (const RuntimeError &error) {
        EndWithError(error);
    }
    --runningHandlers;
}

int RunningHandlers()
{
    return runningHandlers;
}

QWidget *TouchScreen(const QString &name)
{
    QWidget *screen = nullptr;
    RunHandler([&] { screen = Screens().touch(name); });
    return screen;
}

void StartOneShot(QObject *context, int milliseconds, const std::function<void()> &handler)
{
    ++pendingTimers;
    auto *timer = new ScreenTimer(context);
    timer->setSingleShot(true);
    // A timer whose screen goes before it fires is no longer pending either.
    auto pending = std::make_shared<bool>(true);
    const auto settle = [pending] {
        if (std::exchange(*pending, false))
            --pendingTimers;
    };
    QObject::connect(timer, &ScreenTimer::timeout, context, [timer, handler, settle] {
        settle();
        timer->deleteLater();
        RunHandler(handler);
    });
    QObject::connect(timer, &QObject::destroyed, settle);
    timer->start(milliseconds);
}

void ShowInFront(QWidget *screen)
{
    screen->show();
    if (Dialogs::scripted())
        return;
    screen->raise();
    screen->activateWindow();
}

namespace {
bool hostedInBackOffice = false;
} // namespace

void HostScreensInBackOffice()
{
    hostedInBackOffice = true;
}

void DoneWithScreen(QWidget *screen)
{
    if (!hostedInBackOffice)
        EndProgram(0);
    screen->close();
}

bool MayCloseWithEdits(QWidget *view, bool hasUnsavedEdits, const std::function<void()> &save)
{
    if (!hasUnsavedEdits)
        return true;
    switch (Dialogs::showMessage(view, view->windowTitle(), QStringLiteral("Save changes?"), MessageButtons::YesNoCancel)) {
    case MessageAnswer::Yes: RunHandler(save); return true;
    case MessageAnswer::No: return true;
    default: return false;
    }
}

void RequireCompanion(QWidget *command, const QString &companion)
{
    if (Screens().knows(companion))
        return;
    command->setEnabled(false);
    command->setToolTip(QStringLiteral("This belongs to the stations' back office; it isn't part of this program."));
}

void ShowScreenInFront(const QString &name)
{
    if (QWidget *screen = Screens().touch(name))
        ShowInFront(screen);
}

int PendingTimers()
{
    return pendingTimers;
}

} // namespace qlon

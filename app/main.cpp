#include "app/CommandLine.h"
#include "app/ControlList.h"
#include "app/ReportRun.h"
#include "app/Screens.h"
#include "app/ScriptRunner.h"
#include "core/Clock.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "core/Version.h"
#include "demo/DemoSite.h"
#include "platform/ProgramStart.h"
#include "platform/SiteSettings.h"
#include "store/JetCheck.h"
#include "store/ReportTemplate.h"
#include "store/SiteConfig.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"
#include "ui/SharedIconsStyle.h"
#include "ui/SiteChooser.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>

namespace {

const QString mainScreen = QStringLiteral("QLONlistBuilder1");

// Runs the script; its status, or the script runner's for a bad line.
int runScript(const QString &path, QTextStream &out, QTextStream &err)
{
    QFile script;
    const bool opened =
        path == QLatin1String("-") ? script.open(stdin, QIODevice::ReadOnly) : (script.setFileName(path), script.open(QIODevice::ReadOnly));
    if (!opened) {
        err << "qlon: can't read the script " << path << Qt::endl;
        return qlon::ScriptRunner::BadLine;
    }
    return qlon::ScriptRunner(out, err).run(script);
}

// Writes ItemsSold.vrd under the site's data root unless one is there; the status of the run.
int writeReportTemplate(QTextStream &out, QTextStream &err)
{
    try {
        qlon::ReadConfiguration();
        qlon::CloseAll();
    } catch (const qlon::RuntimeError &error) {
        err << "qlon: " << error.message().simplified() << Qt::endl;
        return 1;
    }
    const QString path = qlon::HostPath(qlon::DataPath("ItemsSold.vrd"));
    if (qlon::FileExists(path)) {
        out << "The site has its report template: " << path << Qt::endl;
        return 0;
    }
    if (!qlon::WriteItemsSoldTemplate(path)) {
        err << "qlon: can't write " << path << Qt::endl;
        return 1;
    }
    out << "Report template written: " << path << Qt::endl;
    return 0;
}

bool saveScreenshots(const QStringList &requests, QTextStream &err)
{
    for (const QString &request : requests) {
        const QString screen = request.section(QLatin1Char('='), 0, 0);
        const QString path = request.section(QLatin1Char('='), 1);
        QWidget *widget = qlon::TouchScreen(screen);
        if (!widget || !qlon::ScriptRunner::saveScreenshot(widget, path)) {
            err << "qlon: can't save a picture of " << screen << " to " << path << Qt::endl;
            return false;
        }
    }
    return true;
}

// The screens a run starts with; each is loaded through the one place that handles failures.
void showStartScreens(const QStringList &screens)
{
    for (const QString &name : screens) {
        if (QWidget *screen = qlon::TouchScreen(name))
            screen->show();
    }
}

// Help, the version and a command line that can't be used are answered before any display is
// opened, so they work over SSH; the status to end with, or -1 when the program is to run.
int answerWithoutDisplay(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const qlon::CommandLine commandLine = qlon::ParseCommandLine(QCoreApplication::arguments());
    if (!commandLine.error.isEmpty()) {
        QTextStream(stderr) << "qlon: " << commandLine.error << "\nTry 'qlon --help'." << Qt::endl;
        return 2;
    }
    if (!commandLine.help.isEmpty()) {
        QTextStream(stdout) << commandLine.help << Qt::endl;
        return 0;
    }
    for (const QString &screen : commandLine.openScreens) {
        if (!qlon::Screens().knows(screen)) {
            QTextStream(stderr) << "qlon: --open: there is no screen " << screen << "; the screens are "
                                << qlon::Screens().names().join(QStringLiteral(", ")) << Qt::endl;
            return 2;
        }
    }
    return -1;
}

// The demonstration site a newcomer can try the program on, in the user's own data folder.
QString writeDemoSiteToTry()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/demo-site");
    if (!QDir().mkpath(folder))
        return {};
    qlon::WriteDemoSite(folder, qlon::Today());
    return folder;
}

// Without a window, standard error holds the program's own notes; Qt's remarks on running with
// no display (no size hints offscreen, no runtime folder under cron) are not among them.
void quietenDisplaylessRemarks()
{
    static const QtMessageHandler qtHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
        if (message.contains(QLatin1String("propagateSizeHints")) || message.contains(QLatin1String("XDG_RUNTIME_DIR")))
            return;
        qtHandler(type, context, message);
    });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("qlon"));
    QCoreApplication::setApplicationVersion(QLatin1String(qlon::ProgramVersion));
    if (const QString companion = qlon::CompanionProgram(argc, argv); !companion.isEmpty()) {
        const QCoreApplication application(argc, argv);
        return qlon::RunInPlace(QCoreApplication::applicationDirPath() + QLatin1Char('/') + companion, argv);
    }
    qlon::RegisterScreens();
    if (const int status = answerWithoutDisplay(argc, argv); status >= 0)
        return status;
    if (qlon::RunsWithoutWindow(argc, argv)) {
        quietenDisplaylessRemarks();
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setStyle(new qlon::SharedIconsStyle);
    // Decoding the icon is a part of a scripted run's start worth saving where no window shows.
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/qlon.png")));
    QTextStream out(stdout);
    QTextStream err(stderr);

    const qlon::CommandLine commandLine = qlon::ParseCommandLine(application.arguments());
    // The site remembered from an earlier run fills the drives the command line leaves.
    const qlon::SiteSettings settings;
    settings.apply(commandLine.driveMappings);
    if (commandLine.writeReportTemplate)
        return writeReportTemplate(out, err);
    if (commandLine.today.isValid())
        qlon::FixClock(QDateTime(commandLine.today, QTime::currentTime()));
    if (commandLine.scripted())
        qlon::Dialogs::useScriptedAnswers(&out);

    if (!commandLine.listControls.isEmpty())
        return qlon::ListControls(commandLine.listControls, out, err);

    // A start on a desktop that finds no site asks for it; cancelled, the program ends quietly
    // before any screen loads.
    const bool interactive = !commandLine.scripted() && commandLine.screenshots.isEmpty();
    if (interactive && !qlon::SiteFound() && !qlon::AskForSite(nullptr, settings, writeDemoSiteToTry))
        return 0;

    const QString jetChecker = QCoreApplication::applicationDirPath() + QStringLiteral("/qlon-jet-check");
    if (QFileInfo::exists(jetChecker))
        qlon::SetJetChecker(jetChecker);
    // A report's whole line is checked against the site before any screen runs: a refused line
    // changes no file.
    std::optional<qlon::ReportRun> report;
    if (commandLine.report) {
        report.emplace(*commandLine.report, out, err);
        if (const int refused = report->refusalOnSite(); refused != 0)
            return refused;
    }
    // The program starts by loading its main screen, shown unless other screens were asked for.
    qlon::TouchScreen(mainScreen);
    showStartScreens(commandLine.openScreens.isEmpty() && interactive ? QStringList{mainScreen} : commandLine.openScreens);

    int status = 0;
    if (report)
        status = report->run();
    else if (commandLine.scripted())
        status = runScript(commandLine.scriptPath, out, err);
    if (status == 0 && !saveScreenshots(commandLine.screenshots, err))
        status = 1;
    if (interactive)
        status = application.exec();
    qlon::Screens().clear();
    return status;
}

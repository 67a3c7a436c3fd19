#include "app/CommandLine.h"

#include "platform/PathMap.h"

#include "core/Version.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace qlon {

namespace {

bool applyDriveMappings(const QStringList &mappings)
{
    for (const QString &mapping : mappings) {
        if (!SitePaths().mapDrive(mapping))
            return false;
    }
    return true;
}

// `report NAME` and its options, the one use of words on the command line.
void readReport(const QCommandLineParser &parser, CommandLine &commandLine)
{
    if (parser.positionalArguments().isEmpty())
        return;
    if (parser.positionalArguments().first() != QLatin1String("report")) {
        commandLine.error = QStringLiteral("unknown word ") + parser.positionalArguments().first();
        return;
    }
    ReportRequest request;
    if (const QString misfit = ReadReportRequest(parser, request); !misfit.isEmpty())
        commandLine.error = QStringLiteral("report: ") + misfit;
    commandLine.report = request;
}

} // namespace

CommandLine ParseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Items Sold: what the site sold, over a span of dates and hours."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption drive(QStringLiteral("drive"),
        QStringLiteral("Maps a drive letter of the site's paths to a host folder, such as C=/srv/pos. "
                       "Without it, the site chosen at the first start, remembered in ~/.config/qlon/qlon.ini; "
                       "otherwise drive X: stands for /mnt/x."),
        QStringLiteral("LETTER=FOLDER"));
    const QCommandLineOption script(QStringLiteral("script"),
        QStringLiteral("Runs without a window, driving the screens by the commands of FILE "
                       "(- for standard input)."),
        QStringLiteral("FILE"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Saves a PNG of SCREEN to PATH once the script has run "
                       "(or, without a script, once the program has started) and ends."),
        QStringLiteral("SCREEN=PATH"));
    const QCommandLineOption today(
        QStringLiteral("today"), QStringLiteral("Takes DATE (YYYY-MM-DD) as today's date."), QStringLiteral("DATE"));
    const QCommandLineOption writeTemplate(QStringLiteral("write-report-template"),
        QStringLiteral("Writes the default Items Sold report template, ItemsSold.vrd, into "
                       "the site's data root when the site has none, and ends."));
    const QCommandLineOption open(QStringLiteral("open"),
        QStringLiteral("Starts with SCREEN shown in place of the main screen, such as BackOffice, "
                       "QlonItemsSold or TCEmployee; may be given more than once."),
        QStringLiteral("SCREEN"));
    const QCommandLineOption listControls(QStringLiteral("list-controls"),
        QStringLiteral("Lists every control of SCREEN with its kind, caption and the script commands it takes, and ends."),
        QStringLiteral("SCREEN"));
    parser.addOptions({drive, script, screenshot, today, writeTemplate, open, listControls});
    AddReportOptions(parser);
    // The chain database's commands read their own options; here they are only named.
    parser.addPositionalArgument(QStringLiteral("sync"),
        QStringLiteral("sync --to URL [--site NAME] writes the site's sales and monthly sales files to the chain database at URL, "
                       "as libpq takes it "
                       "(status 1: the site can't be read or the database refuses)."),
        QStringLiteral("[sync --to URL [--site NAME]]"));
    parser.addPositionalArgument(QStringLiteral("report --chain"),
        QStringLiteral("report main|items-sold --chain URL [--sites A,B|all] --from DATE --to DATE reports each site of the chain "
                       "database and their sum, with the options of report (status 1: the database refuses or lacks a site; "
                       "status 2: report server --chain)."),
        QStringLiteral("[report main|items-sold --chain URL [--sites A,B|all]]"));

    CommandLine commandLine;
    if (!parser.parse(arguments)) {
        commandLine.error = parser.errorText();
        return commandLine;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        commandLine.help = parser.helpText();
        return commandLine;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        commandLine.help = QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion();
        return commandLine;
    }
    commandLine.driveMappings = parser.values(drive);
    commandLine.scriptPath = parser.value(script);
    commandLine.screenshots = parser.values(screenshot);
    commandLine.openScreens = parser.values(open);
    commandLine.writeReportTemplate = parser.isSet(writeTemplate);
    commandLine.listControls = parser.value(listControls);
    readReport(parser, commandLine);
    if (parser.isSet(today)) {
        commandLine.today = QDate::fromString(parser.value(today), Qt::ISODate);
        if (!commandLine.today.isValid())
            commandLine.error = QStringLiteral("--today takes a date as YYYY-MM-DD");
    }
    if (!applyDriveMappings(commandLine.driveMappings))
        commandLine.error = QStringLiteral("--drive takes LETTER=FOLDER");
    for (const QString &mapping : commandLine.driveMappings) {
        const QString folder = mapping.section(QLatin1Char('='), 1);
        if (commandLine.error.isEmpty() && !QFileInfo(folder).isDir())
            commandLine.error = QStringLiteral("--drive %1: there is no folder %2").arg(mapping, folder);
    }
    return commandLine;
}

bool RunsWithoutWindow(int argc, char *argv[])
{
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "report") == 0)
            return true;
        for (const char *option : {"--script", "--screenshot", "--write-report-template", "--list-controls"}) {
            const std::size_t length = std::strlen(option);
            if (std::strncmp(argv[index], option, length) == 0 && (argv[index][length] == '\0' || argv[index][length] == '='))
                return true;
        }
    }
    return false;
}

QString CommandWord(int argc, char *argv[])
{
    // Every option of every command that takes a value, written apart from it.
    static const QStringList valueOptions = {QStringLiteral("drive"), QStringLiteral("script"), QStringLiteral("screenshot"),
        QStringLiteral("today"), QStringLiteral("open"), QStringLiteral("list-controls"), QStringLiteral("from"), QStringLiteral("to"),
        QStringLiteral("start-time"), QStringLiteral("end-time"), QStringLiteral("category"), QStringLiteral("department"),
        QStringLiteral("server"), QStringLiteral("pdf"), QStringLiteral("csv"), QStringLiteral("format"), QStringLiteral("chain"),
        QStringLiteral("sites"), QStringLiteral("site"), QStringLiteral("listen"), QStringLiteral("tls-cert"), QStringLiteral("tls-key"),
        QStringLiteral("report-time-limit"), QStringLiteral("role")};
    for (int index = 1; index < argc; ++index) {
        const QString argument = QString::fromLocal8Bit(argv[index]);
        if (!argument.startsWith(QLatin1Char('-')))
            return argument;
        if (valueOptions.contains(argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1)))
            ++index;
    }
    return {};
}

QString CompanionProgram(int argc, char *argv[])
{
    const QString word = CommandWord(argc, argv);
    if (word == QLatin1String("serve") || word == QLatin1String("user"))
        return QStringLiteral("qlon-serve");
    const auto chained = [](const char *argument) { return std::strncmp(argument, "--chain", 7) == 0; };
    if (word == QLatin1String("sync") || (word == QLatin1String("report") && std::any_of(argv + 1, argv + argc, chained)))
        return QStringLiteral("qlon-chain");
    return {};
}

} // namespace qlon

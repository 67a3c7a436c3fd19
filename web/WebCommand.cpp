#include "web/WebCommand.h"

#include "web/ReportChild.h"
#include "web/WebServer.h"

#include "platform/PathMap.h"
#include "platform/SiteSettings.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHostAddress>
#include <QTextStream>

#include <csignal>
#include <pthread.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace qlon::web {

namespace {

// The options of `serve` and `user`: name, help, and the name of the value.
struct OptionText
{
    const char *name;
    const char *help;
    const char *value;
};
constexpr OptionText optionTexts[] = {
    {"drive", "Maps a drive letter of the site's paths to a host folder.", "LETTER=FOLDER"},
    {"listen", "serve: the address and port to listen on (127.0.0.1:8470; port 0 takes a free one).", "ADDR:PORT"},
    {"tls-cert", "serve: the TLS certificate (PEM), with --tls-key.", "FILE"},
    {"tls-key", "serve: the TLS private key (PEM).", "FILE"},
    {"report-time-limit", "serve: the seconds a report may run before it is stopped (120).", "SECONDS"},
    {"role", "user add: viewer (reports, the default) or manager.", "ROLE"},
};
const QString driveOption = QStringLiteral("drive");
const QString listenOption = QStringLiteral("listen");
const QString certificateOption = QStringLiteral("tls-cert");
const QString keyOption = QStringLiteral("tls-key");
const QString timeLimitOption = QStringLiteral("report-time-limit");
const QString roleOption = QStringLiteral("role");

int fail(const QString &text, int status = 2)
{
    QTextStream(stderr) << "qlon: " << text << Qt::endl;
    return status;
}

// A line of standard input; on a terminal, without echo.
QString readPassword(const char *prompt)
{
    const bool terminal = isatty(STDIN_FILENO) != 0;
    termios saved{};
    if (terminal) {
        QTextStream(stderr) << prompt << Qt::flush;
        tcgetattr(STDIN_FILENO, &saved);
        termios quiet = saved;
        quiet.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
    }
    QTextStream in(stdin);
    const QString line = in.readLine();
    if (terminal) {
        tcsetattr(STDIN_FILENO, TCSANOW, &saved);
        QTextStream(stderr) << "\n";
    }
    return line;
}

int addUser(Accounts &accounts, const QString &name, const QCommandLineParser &parser)
{
    const std::optional<Role> role = RoleFromName(parser.isSet(roleOption) ? parser.value(roleOption) : QStringLiteral("viewer"));
    if (!role)
        return fail(QStringLiteral("user add: --role takes viewer or manager"));
    const QString password = readPassword("Password: ");
    if (isatty(STDIN_FILENO) && readPassword("The password again: ") != password)
        return fail(QStringLiteral("user add: the passwords differ"), 1);
    if (!accounts.add(name, password, *role))
        return fail(QStringLiteral("user add: a password has eight characters at least"), 1);
    if (const QString error = accounts.save(); !error.isEmpty())
        return fail(QStringLiteral("user add: ") + error, 1);
    QTextStream(stdout) << name << " may sign in as " << RoleName(*role) << Qt::endl;
    return 0;
}

int runUser(const QCommandLineParser &parser)
{
    const QStringList words = parser.positionalArguments();
    const bool adding = words.value(1) == QLatin1String("add");
    if (words.size() != 3 || (!adding && words.value(1) != QLatin1String("remove")))
        return fail(QStringLiteral("user add NAME [--role viewer|manager], or user remove NAME"));
    const QString name = words[2];
    if (!Accounts::IsValidName(name))
        return fail(QStringLiteral("user: a name is letters, digits, dots, dashes and underscores"));
    Accounts accounts(Accounts::DefaultPath());
    if (const QString error = accounts.load(); !error.isEmpty())
        return fail(QStringLiteral("user: ") + error, 1);
    if (adding)
        return addUser(accounts, name, parser);
    if (!accounts.remove(name))
        return fail(QStringLiteral("user remove: there is no %1").arg(name), 1);
    if (const QString error = accounts.save(); !error.isEmpty())
        return fail(QStringLiteral("user remove: ") + error, 1);
    QTextStream(stdout) << name << " may no longer sign in" << Qt::endl;
    return 0;
}

// The server reads and writes the site's departments list itself: the site is mapped as the
// children's command line maps it.
QString mapSite(const QCommandLineParser &parser)
{
    SiteSettings().apply(parser.values(driveOption));
    for (const QString &mapping : parser.values(driveOption)) {
        if (!QFileInfo(mapping.section(QLatin1Char('='), 1)).isDir() || !SitePaths().mapDrive(mapping))
            return QStringLiteral("--drive %1: there is no such folder").arg(mapping);
    }
    return {};
}

// The serve options of the command line; an error text when they can't be used.
QString readServeOptions(const QCommandLineParser &parser, ServeOptions &options)
{
    if (parser.isSet(listenOption)) {
        const QString listen = parser.value(listenOption);
        const qsizetype colon = listen.lastIndexOf(QLatin1Char(':'));
        bool number = false;
        options.host = listen.left(colon);
        options.port = listen.mid(colon + 1).toInt(&number);
        if (colon < 0 || !number || options.port < 0 || options.port > 65535 || QHostAddress(options.host).isNull())
            return QStringLiteral("--listen takes ADDR:PORT, such as 127.0.0.1:8470");
    }
    options.certificateFile = parser.value(certificateOption);
    options.keyFile = parser.value(keyOption);
    if (options.certificateFile.isEmpty() != options.keyFile.isEmpty())
        return QStringLiteral("--tls-cert and --tls-key go together");
    if (parser.isSet(timeLimitOption)) {
        const int seconds = parser.value(timeLimitOption).toInt();
        if (seconds <= 0)
            return QStringLiteral("--report-time-limit takes a number of seconds");
        options.reportTimeLimit = std::chrono::seconds(seconds);
    }
    options.accountsFile = Accounts::DefaultPath();
    return mapSite(parser);
}

// The children are given the site as the server was: its drives, or none for the remembered site.
QStringList siteArguments(const QCommandLineParser &parser)
{
    QStringList arguments;
    for (const QString &mapping : parser.values(driveOption))
        arguments << QStringLiteral("--drive") << mapping;
    return arguments;
}

int runServe(const QCommandLineParser &parser)
{
    ServeOptions options;
    if (const QString error = readServeOptions(parser, options); !error.isEmpty())
        return fail(QStringLiteral("serve: ") + error);
    if (!QHostAddress(options.host).isLoopback() && !options.tls()) {
        QTextStream(stderr) << "qlon serve: warning: listening on " << options.host
                            << " without TLS: passwords and figures cross the network readable (see --tls-cert)" << Qt::endl;
    }
    // SIGTERM (systemd's stop) and SIGINT end the server through one thread that waits for them.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);

    // Each report is the desktop program's own `qlon report`, beside this one.
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/qlon");
    ReportQueue queue(ReportChild(program, siteArguments(parser), options.reportTimeLimit));
    WebServer server(options, queue);
    if (const QString error = server.bind(); !error.isEmpty())
        return fail(QStringLiteral("serve: ") + error, 1);
    if (Accounts accounts(options.accountsFile); accounts.load().isEmpty() && !QFileInfo::exists(options.accountsFile))
        QTextStream(stderr) << "qlon serve: nobody can sign in yet: add someone with qlon user add NAME" << Qt::endl;
    QTextStream(stdout) << "Serving the reports on " << (options.tls() ? "https" : "http") << "://" << options.host << ':' << server.port()
                        << '/' << Qt::endl;
    std::thread ending([&server, &endings] {
        int signal = 0;
        sigwait(&endings, &signal);
        server.stop();
    });
    const bool served = server.run();
    // The server may have ended without a signal: one is sent so the waiting thread ends too.
    pthread_kill(ending.native_handle(), SIGTERM);
    ending.join();
    return served ? 0 : 1;
}

} // namespace

int RunWebCommand(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("qlon serve: the reports in a browser; qlon user: who may sign in."));
    parser.addHelpOption();
    for (const OptionText &option : optionTexts) {
        parser.addOption(QCommandLineOption(QLatin1String(option.name), QLatin1String(option.help), QLatin1String(option.value)));
    }
    parser.addPositionalArgument(QStringLiteral("serve|user"), QStringLiteral("serve, or user add|remove NAME"));
    if (!parser.parse(QCoreApplication::arguments()))
        return fail(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << parser.helpText();
        return 0;
    }
    const QString word = parser.positionalArguments().value(0);
    if (word == QLatin1String("user"))
        return runUser(parser);
    if (word != QLatin1String("serve"))
        return fail(QStringLiteral("qlon-serve runs qlon serve and qlon user"));
    if (parser.positionalArguments().size() != 1)
        return fail(QStringLiteral("serve takes no words, only options"));
    return runServe(parser);
}

} // namespace qlon::web

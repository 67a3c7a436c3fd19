#include "app/ChainCommands.h"

#include "app/CommandLine.h"
#include "app/ReportCommand.h"
#include "app/ReportHeading.h"
#include "app/ReportJson.h"
#include "chain/ChainReportText.h"
#include "chain/SyncCommand.h"
#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "core/Ansi.h"
#include "core/Clock.h"
#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "store/JetCheck.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace qlon {

namespace {

const QCommandLineOption driveOption(
    QStringLiteral("drive"), QStringLiteral("Maps a drive letter, such as C=/srv/pos."), QStringLiteral("LETTER=FOLDER"));
const QCommandLineOption todayOption(QStringLiteral("today"), QStringLiteral("Takes DATE as today's date."), QStringLiteral("DATE"));
const QCommandLineOption chainOption(
    QStringLiteral("chain"), QStringLiteral("report: reads the chain database at URL in place of the site."), QStringLiteral("URL"));
const QCommandLineOption sitesOption(
    QStringLiteral("sites"), QStringLiteral("report --chain: the sites, A,B or all (the default)."), QStringLiteral("LIST"));

struct Refusal
{
    int status;
    QString text;
};

// The site the drive mappings and the remembered site give; the text of a mapping that fails.
QString applyDrives(const QStringList &mappings)
{
    SiteSettings().apply(mappings);
    for (const QString &mapping : mappings) {
        if (!SitePaths().mapDrive(mapping))
            return QStringLiteral("--drive takes LETTER=FOLDER");
    }
    return {};
}

int sync(const QStringList &arguments, QTextStream &err)
{
    QCommandLineParser parser;
    const QCommandLineOption to(QStringLiteral("to"), QStringLiteral("The chain database, as libpq takes it."), QStringLiteral("URL"));
    const QCommandLineOption site(QStringLiteral("site"), QStringLiteral("The site's name in the chain."), QStringLiteral("NAME"));
    parser.addOptions({driveOption, to, site});
    parser.addPositionalArgument(QStringLiteral("sync"), QStringLiteral("Writes the site's sales to the chain database."));
    QString misfit = parser.parse(arguments) ? QString() : parser.errorText();
    if (misfit.isEmpty() && (parser.positionalArguments() != QStringList{QStringLiteral("sync")} || parser.value(to).isEmpty()))
        misfit = QStringLiteral("qlon sync --to URL [--site NAME]");
    if (misfit.isEmpty())
        misfit = applyDrives(parser.values(driveOption));
    if (!misfit.isEmpty()) {
        err << "qlon: sync: " << misfit << Qt::endl;
        return 2;
    }
    const QString jetChecker = QCoreApplication::applicationDirPath() + QStringLiteral("/qlon-jet-check");
    if (QFileInfo::exists(jetChecker))
        SetJetChecker(jetChecker);
    return SyncToChain(parser.value(to).toUtf8(), parser.value(site), err);
}

// The request as a report over the chain takes it: main or items-sold, over dates of its own.
Refusal readChainRequest(const QCommandLineParser &parser, ReportRequest &request)
{
    if (const QString misfit = ReadReportRequest(parser, request, true); !misfit.isEmpty())
        return {2, misfit};
    if (request.name != QLatin1String("main") && request.name != QLatin1String("items-sold"))
        return {2, QStringLiteral("--chain reports main and items-sold; the server report stays with its site")};
    if (request.from.isEmpty() || request.to.isEmpty())
        return {2, QStringLiteral("--chain needs --from and --to: each site has start dates of its own")};
    if (!request.pdf.isEmpty() || request.printScript)
        return {2, QStringLiteral("--chain prints no PDF and runs no script")};
    return {0, {}};
}

QString categoryOf(const ReportRequest &request)
{
    return request.category.isEmpty() ? QStringLiteral("all") : request.category.toLower();
}

// The span and category as the main screen would take them.
ChainSpan mainSpanOf(const ReportRequest &request)
{
    ChainSpan span;
    span.from = ReportDay(request.from);
    span.to = ReportDay(request.to);
    if (!request.startTime.isEmpty())
        span.startTime = ToAnsi(request.startTime);
    if (!request.endTime.isEmpty())
        span.endTime = ToAnsi(request.endTime);
    return span;
}

CategoryChoice mainChoiceOf(const ReportRequest &request)
{
    const QString category = categoryOf(request);
    CategoryChoice choice;
    choice.all = category == QLatin1String("all") && request.department.isEmpty();
    choice.food = category == QLatin1String("food");
    choice.bar = category == QLatin1String("bar");
    choice.both = category == QLatin1String("both");
    choice.retail = category == QLatin1String("retail");
    choice.department = !request.department.isEmpty();
    choice.departmentCaption = ToAnsi(request.department);
    return choice;
}

// The span, option and department as the Items Sold screen would take them.
ItemsSoldChoice itemsSoldChoiceOf(const ReportRequest &request)
{
    ItemsSoldChoice choice;
    choice.from = ReportDay(request.from);
    choice.to = ReportDay(request.to);
    if (!request.startTime.isEmpty())
        choice.startTime = ToAnsi(request.startTime);
    if (!request.endTime.isEmpty())
        choice.endTime = ToAnsi(request.endTime);
    choice.category = ToAnsi(categoryOf(request));
    choice.department = ToAnsi(request.department);
    return choice;
}

// A site's figures as its report prints them, or the sites' sum; the CSV of the sum.
struct PrintedReport
{
    QList<std::pair<QString, QString>> sites; // each site and its printed list
    QString combined;
    QByteArray csv;
};

// The sites' listings and their sum as printed and exported by the report's own functions.
template<typename Listing, typename Combine, typename Print, typename Export>
PrintedReport printedFigures(const QList<Listing> &listings, Combine combine, Print print, Export exported)
{
    PrintedReport report;
    for (const Listing &listing : listings)
        report.sites.append({listing.site, print(listing)});
    const Listing combined = combine(listings);
    report.combined = print(combined);
    report.csv = exported(combined);
    return report;
}

PrintedReport chainFigures(ChainDatabase &database, const ReportRequest &request, const QStringList &sites)
{
    if (request.name == QLatin1String("main")) {
        return printedFigures(
            ChainMainReport(database, sites, mainSpanOf(request), mainChoiceOf(request)), CombinedListing, PrintedListing, ExportedListing);
    }
    return printedFigures(
        ChainItemsSoldReport(database, sites, itemsSoldChoiceOf(request)), CombinedItemsSold, PrintedItemsSold, ExportedItemsSold);
}

// Each site's report as `qlon report` prints it, heading and all, then the sites' sum.
void printReport(const ReportRequest &request, const PrintedReport &report, QTextStream &out)
{
    const QDate from = ReportDay(request.from);
    const QDate to = ReportDay(request.to);
    QStringList names;
    for (const auto &[site, printed] : report.sites)
        names.append(site);
    const QString sum = QStringLiteral("combined (%1)").arg(names.join(QStringLiteral(", ")));
    if (!request.json) {
        for (const auto &[site, printed] : report.sites)
            out << HeadingOf(request, site, from, to).lines().join(QLatin1Char('\n')) << '\n' << printed;
        out << HeadingOf(request, sum, from, to).lines().join(QLatin1Char('\n')) << '\n' << report.combined << Qt::flush;
        return;
    }
    const auto json = [&](const QString &site, const QString &printed) {
        return QJsonDocument::fromJson(ReportJson(request, HeadingOf(request, site, from, to), printed, 0, {})).object();
    };
    QJsonArray sites;
    for (const auto &[site, printed] : report.sites)
        sites.append(json(site, printed));
    QJsonObject combined = json({}, report.combined);
    combined.remove(QStringLiteral("site"));
    out << QJsonDocument(QJsonObject{{QStringLiteral("report"), request.name}, {QStringLiteral("sites"), sites},
                             {QStringLiteral("combined"), combined}})
               .toJson(QJsonDocument::Indented)
        << Qt::flush;
}

int chainReport(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QCommandLineParser parser;
    parser.addOptions({driveOption, todayOption, chainOption, sitesOption});
    AddReportOptions(parser);
    ReportRequest request;
    Refusal refusal = parser.parse(arguments) ? Refusal{0, {}} : Refusal{2, parser.errorText()};
    if (refusal.status == 0 && parser.isSet(todayOption))
        FixClock(QDateTime(QDate::fromString(parser.value(todayOption), Qt::ISODate), QTime::currentTime()));
    if (refusal.status == 0)
        refusal = readChainRequest(parser, request);
    if (refusal.status != 0) {
        err << "qlon: report: " << refusal.text << Qt::endl;
        return refusal.status;
    }
    try {
        ChainDatabase database(parser.value(chainOption).toUtf8());
        CheckChainSchema(database);
        const QString sitesValue = parser.value(sitesOption);
        const QStringList sites =
            sitesValue.isEmpty() || sitesValue == QLatin1String("all") ? ChainSites(database) : sitesValue.split(QLatin1Char(','));
        const PrintedReport report = chainFigures(database, request, sites);
        printReport(request, report, out);
        if (!request.csv.isEmpty()) {
            QFile csv(DatedName(request.csv));
            if (!csv.open(QIODevice::WriteOnly) || csv.write(report.csv) < 0) {
                err << "qlon: report: can't write " << csv.fileName() << Qt::endl;
                return 1;
            }
        }
    } catch (const ChainError &error) {
        err << "qlon: report: " << error.message() << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace

int RunChainCommand(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QString word = CommandWord(argc, argv);
    if (word == QLatin1String("sync"))
        return sync(arguments, err);
    if (word == QLatin1String("report"))
        return chainReport(arguments, out, err);
    err << "qlon-chain: runs qlon sync and qlon report --chain; see qlon --help" << Qt::endl;
    return 2;
}

} // namespace qlon

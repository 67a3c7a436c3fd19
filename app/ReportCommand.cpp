#include "app/ReportCommand.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/DateText.h"
#include "core/DateWords.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "store/Departments.h"
#include "store/SalesStore.h"
#include "store/SiteConfig.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <ctime>

namespace qlon {

namespace {

const QString mainReport = QStringLiteral("main");
const QString itemsSoldReport = QStringLiteral("items-sold");
const QString serverReport = QStringLiteral("server");

// The category words and the option of the main screen and of Items Sold that each stands for.
const QStringList categoryWords = {
    QStringLiteral("food"), QStringLiteral("bar"), QStringLiteral("both"), QStringLiteral("retail"), QStringLiteral("all")};
const QStringList categoryOptions = {QStringLiteral("SSOption1"), QStringLiteral("SSOption2"), QStringLiteral("SSOption3"),
    QStringLiteral("SSOption5"), QStringLiteral("SSOption6")};

const QCommandLineOption fromOption(QStringLiteral("from"),
    QStringLiteral("report: the first day (YYYY-MM-DD, MM/DD/YYYY or a word such as yesterday)."), QStringLiteral("DATE"));
const QCommandLineOption toOption(QStringLiteral("to"), QStringLiteral("report: the last day."), QStringLiteral("DATE"));
const QCommandLineOption startOption(
    QStringLiteral("start-time"), QStringLiteral("report: the first time of each day, such as 11:00 am."), QStringLiteral("T"));
const QCommandLineOption endOption(QStringLiteral("end-time"), QStringLiteral("report: the last time of each day."), QStringLiteral("T"));
const QCommandLineOption categoryOption(
    QStringLiteral("category"), QStringLiteral("report: food, bar, both, retail or all (main, items-sold)."), QStringLiteral("C"));
const QCommandLineOption departmentOption(QStringLiteral("department"),
    QStringLiteral("report: one of the site's departments, in any case (main, items-sold)."), QStringLiteral("NAME"));
const QCommandLineOption serverOption(
    QStringLiteral("server"), QStringLiteral("report: the server's number (server)."), QStringLiteral("N"));
const QCommandLineOption pdfOption(
    QStringLiteral("pdf"), QStringLiteral("report: prints to FILE, a PDF; %Y, %m, %d stand for today."), QStringLiteral("FILE"));
const QCommandLineOption csvOption(
    QStringLiteral("csv"), QStringLiteral("report: exports the list to FILE (main; items-sold --chain)."), QStringLiteral("FILE"));
const QCommandLineOption formatOption(QStringLiteral("format"),
    QStringLiteral("report: text (the screens' lines, the default) or json (one object of the figures)."), QStringLiteral("F"));
const QCommandLineOption printScriptOption(
    QStringLiteral("print-script"), QStringLiteral("report: prints the script instead of running it."));

// A date of the command line as the script's `set` takes it; empty when it is none.
QString scriptDate(const QString &text)
{
    if (DateFromWord(text, Today()).isValid() || QDate::fromString(text, QStringLiteral("MM/dd/yyyy")).isValid())
        return text;
    const QDate iso = QDate::fromString(text, Qt::ISODate);
    return iso.isValid() ? iso.toString(QStringLiteral("MM/dd/yyyy")) : QString();
}

// A time as the pickers take it, such as 11:00 am.
bool isPickerTime(const QString &text)
{
    return ToTime(ToAnsi(text)).has_value();
}

QString misfitOfSpan(const ReportRequest &request)
{
    for (const auto &[time, option] : {std::pair{request.startTime, "--start-time"}, std::pair{request.endTime, "--end-time"}}) {
        if (!time.isEmpty() && !isPickerTime(time))
            return QStringLiteral("%1 '%2' is no time of day (such as 11:00 am or 6:30 pm)").arg(QLatin1String(option), time);
    }
    if (!request.from.isEmpty() && !request.to.isEmpty() && ReportDay(request.to) < ReportDay(request.from))
        return QStringLiteral("--to %1 lies before --from %2").arg(request.to, request.from);
    return {};
}

QString misfitOfCategory(const ReportRequest &request)
{
    if (!request.category.isEmpty() && !categoryWords.contains(request.category.toLower())) {
        return QStringLiteral("unknown category '%1' (%2; a department goes with --department)")
            .arg(request.category, categoryWords.join(QStringLiteral(", ")));
    }
    if (request.name == mainReport && !request.category.isEmpty() && !request.department.isEmpty())
        return QStringLiteral("the main report takes --category or --department, not both");
    return {};
}

// What the request asks that its report can't do; empty when nothing.
QString misfit(const ReportRequest &request, bool overChain)
{
    if (!ReportNames().contains(request.name))
        return QStringLiteral("unknown report '%1' (%2)").arg(request.name, ReportNames().join(QStringLiteral(", ")));
    if (request.name == serverReport && request.server.isEmpty())
        return QStringLiteral("the server report needs --server N");
    if (request.name != serverReport && !request.server.isEmpty())
        return QStringLiteral("--server is for the server report");
    if (request.name == serverReport && !(request.category.isEmpty() && request.department.isEmpty()))
        return QStringLiteral("the server report takes no --category or --department");
    if (request.name != mainReport && !(overChain && request.name == itemsSoldReport) && !request.csv.isEmpty())
        return QStringLiteral("--csv is for the main report: the others print their rows on standard output");
    if (const QString category = misfitOfCategory(request); !category.isEmpty())
        return category;
    return misfitOfSpan(request);
}

// The configuration tells where the site's data lies; a file that can't be read now is left to the
// screens, which end on it as they always do.
bool readSiteConfiguration()
{
    try {
        ReadConfiguration();
    } catch (const RuntimeError &) {
        CloseAll();
        return false;
    }
    CloseAll();
    return true;
}

// A report of the sales database on a site without one would end on a knock-on error of the
// screens; the missing file is the error to tell.
ReportRefusal checkDatabase(const ReportRequest &request)
{
    if (request.name == itemsSoldReport)
        return {};
    const QByteArray database = DataPath(SalesDatabaseFile);
    if (FileExists(HostPath(database)))
        return {};
    return {1, QStringLiteral("Could not find file '%1'.").arg(FromAnsi(database))};
}

ReportRefusal checkDepartment(ReportRequest &request)
{
    if (request.department.isEmpty())
        return {};
    const QStringList departments = ReportDepartments(request.name == mainReport);
    for (const QString &department : departments) {
        if (department.compare(request.department, Qt::CaseInsensitive) == 0) {
            request.department = department;
            return {};
        }
    }
    return {2, QStringLiteral("unknown department '%1' (the site's: %2)").arg(request.department, departments.join(QStringLiteral(", ")))};
}

// A file the report writes: its folder must be there, and writable.
ReportRefusal checkOutputFile(const QString &pattern, const char *option)
{
    if (pattern.isEmpty())
        return {};
    const QFileInfo file(pattern);
    const QFileInfo folder(file.absolutePath());
    if (!folder.isDir())
        return {2, QStringLiteral("%1: folder %2 does not exist").arg(QLatin1String(option), folder.filePath())};
    if (!folder.isWritable() || (file.exists() && !file.isWritable()))
        return {1, QStringLiteral("%1: %2 can't be written").arg(QLatin1String(option), file.filePath())};
    return {};
}

class ScriptWriter
{
public:
    void line(const QString &command) { m_script += command + QLatin1Char('\n'); }
    // A command whose value the request may leave open, to keep what the screen has.
    void lineIf(const QString &command, const QString &value)
    {
        if (!value.isEmpty())
            line(command + QLatin1Char(' ') + value);
    }
    // A file the request names, then the button that writes it.
    void writeFile(const QString &command, const QString &file, const QString &button)
    {
        if (file.isEmpty())
            return;
        line(command + QLatin1Char(' ') + file);
        line(QStringLiteral("click ") + button);
    }
    QString script() const { return m_script; }

private:
    QString m_script;
};

// The span on a screen: its two calendars and its two time pickers, which keep the whole day
// unless the request names the hours.
void setSpan(ScriptWriter &script, const QString &screen, const QStringList &timePickers, const ReportRequest &request, const QString &from,
    const QString &to)
{
    script.line(QStringLiteral("set %1.MonthView1 %2").arg(screen, from));
    script.line(QStringLiteral("set %1.MonthView2 %2").arg(screen, to));
    script.lineIf(QStringLiteral("set %1.%2").arg(screen, timePickers[0]), request.startTime);
    script.lineIf(QStringLiteral("set %1.%2").arg(screen, timePickers[1]), request.endTime);
}

// The main screen's span, which the server screen also takes when it opens.
void setMainSpan(ScriptWriter &script, const ReportRequest &request, const QString &from, const QString &to)
{
    setSpan(script, QStringLiteral("QLONlistBuilder1"), {QStringLiteral("Combo2"), QStringLiteral("Combo3")}, request, from, to);
}

void writeMainReport(ScriptWriter &script, const ReportRequest &request, const QString &from, const QString &to)
{
    script.line(QStringLiteral("# The main list: the category's items with their units, sales volume and department totals"));
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand8"));
    script.line(QStringLiteral("wait"));
    setMainSpan(script, request, from, to);
    const qsizetype word = categoryWords.indexOf(request.category.isEmpty() ? QStringLiteral("all") : request.category.toLower());
    if (!request.department.isEmpty()) {
        script.line(QStringLiteral("pick QLONlistBuilder1.Combo1 ") + request.department);
        script.line(QStringLiteral("click QLONlistBuilder1.SSOption7"));
    } else {
        script.line(QStringLiteral("click QLONlistBuilder1.") + categoryOptions[word]);
    }
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand2"));
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand4"));
    script.line(QStringLiteral("wait"));
    script.line(QStringLiteral("rows QLONlistBuilder1.MList1"));
    script.writeFile(QStringLiteral("print-to-pdf"), request.pdf, QStringLiteral("QLONlistBuilder1.SSCommand6"));
    script.writeFile(QStringLiteral("save-as"), request.csv, QStringLiteral("QLONlistBuilder1.SSCommand7"));
}

void writeItemsSoldReport(ScriptWriter &script, const ReportRequest &request, const QString &from, const QString &to)
{
    script.line(QStringLiteral("# The Items Sold analysis of the monthly sales files"));
    script.line(QStringLiteral("show QlonItemsSold"));
    setSpan(script, QStringLiteral("QlonItemsSold"), {QStringLiteral("Combo1(0)"), QStringLiteral("Combo1(1)")}, request, from, to);
    const qsizetype word = categoryWords.indexOf(request.category.toLower());
    if (word >= 0)
        script.line(QStringLiteral("click QlonItemsSold.") + categoryOptions[word]);
    // The run asks whether to show the sold items the catalogue lacks; the report prints their count.
    script.line(QStringLiteral("answer No"));
    script.line(QStringLiteral("click QlonItemsSold.SSCommand4"));
    script.line(QStringLiteral("wait"));
    if (!request.department.isEmpty()) {
        script.line(QStringLiteral("set QlonItemsSold.Combo2 ") + request.department);
        script.line(QStringLiteral("click QlonItemsSold.SSCommand9"));
    }
    script.line(QStringLiteral("rows QlonItemsSold.MList1"));
    script.line(QStringLiteral("get QlonItemsSold.Label7"));
    script.line(QStringLiteral("get QlonItemsSold.List4 count"));
    script.writeFile(QStringLiteral("print-to-pdf"), request.pdf, QStringLiteral("QlonItemsSold.SSCommand6"));
}

void writeServerReport(ScriptWriter &script, const ReportRequest &request, const QString &from, const QString &to)
{
    script.line(QStringLiteral("# One server's sales: food, liquor and the list of sales"));
    setMainSpan(script, request, from, to);
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand9"));
    script.line(QStringLiteral("wait"));
    script.line(QStringLiteral("pick QLONserverLiquor.Combo1 ") + request.server);
    script.line(QStringLiteral("click QLONserverLiquor.Command1"));
    script.line(QStringLiteral("get QLONserverLiquor.Label2"));
    script.line(QStringLiteral("get QLONserverLiquor.Text3"));
    script.line(QStringLiteral("get QLONserverLiquor.Text4"));
    script.line(QStringLiteral("get QLONserverLiquor.Text5"));
    script.line(QStringLiteral("rows QLONserverLiquor.MList1"));
    script.writeFile(QStringLiteral("print-to-pdf"), request.pdf, QStringLiteral("QLONserverLiquor.SSCommand3"));
}

} // namespace

QStringList ReportNames()
{
    return {mainReport, itemsSoldReport, serverReport};
}

void AddReportOptions(QCommandLineParser &parser)
{
    parser.addOptions({fromOption, toOption, startOption, endOption, categoryOption, departmentOption, serverOption, pdfOption, csvOption,
        formatOption, printScriptOption});
    parser.addPositionalArgument(QStringLiteral("report"),
        QStringLiteral("report NAME runs one of the reports (%1) without a window and prints its figures.")
            .arg(ReportNames().join(QStringLiteral(", "))),
        QStringLiteral("[report NAME]"));
}

QString ReadReportRequest(const QCommandLineParser &parser, ReportRequest &request, bool overChain)
{
    const QStringList words = parser.positionalArguments();
    if (words.size() != 2)
        return QStringLiteral("one report name, of ") + ReportNames().join(QStringLiteral(", "));
    request.name = words[1];
    request.from = parser.value(fromOption);
    request.to = parser.value(toOption);
    for (const auto &[date, option] : {std::pair{&request.from, &fromOption}, std::pair{&request.to, &toOption}}) {
        // An empty value, as an unset shell variable gives, is no call for the site's dates.
        if ((parser.isSet(*option) && date->isEmpty()) || (!date->isEmpty() && scriptDate(*date).isEmpty())) {
            return QStringLiteral("--%1 '%2' is no date (YYYY-MM-DD, MM/DD/YYYY or a word such as yesterday)")
                .arg(option->names().constFirst(), *date);
        }
        *date = scriptDate(*date);
    }
    request.startTime = parser.value(startOption);
    request.endTime = parser.value(endOption);
    request.category = parser.value(categoryOption);
    request.department = parser.value(departmentOption);
    request.server = parser.value(serverOption);
    request.pdf = parser.value(pdfOption);
    request.csv = parser.value(csvOption);
    request.printScript = parser.isSet(printScriptOption);
    const QString format = parser.value(formatOption);
    if (!format.isEmpty() && format != QLatin1String("text") && format != QLatin1String("json"))
        return QStringLiteral("--format takes text or json");
    request.json = format == QLatin1String("json");
    return misfit(request, overChain);
}

QString ReportScript(const ReportRequest &request, const QString &siteFrom, const QString &siteTo)
{
    const QString from = request.from.isEmpty() ? siteFrom : request.from;
    const QString to = request.to.isEmpty() ? siteTo : request.to;
    ScriptWriter script;
    if (request.name == mainReport)
        writeMainReport(script, request, from, to);
    else if (request.name == itemsSoldReport)
        writeItemsSoldReport(script, request, from, to);
    else
        writeServerReport(script, request, from, to);
    return script.script();
}

ReportRefusal CheckReportOnSite(ReportRequest &request)
{
    for (const ReportRefusal &refusal : {checkOutputFile(request.pdf, "--pdf"), checkOutputFile(request.csv, "--csv")}) {
        if (refusal.status != 0)
            return refusal;
    }
    if (!readSiteConfiguration())
        return {};
    if (const ReportRefusal department = checkDepartment(request); department.status != 0)
        return department;
    return checkDatabase(request);
}

QDate ReportDay(const QString &scriptDate)
{
    const QDate word = DateFromWord(scriptDate, Today());
    return word.isValid() ? word : QDate::fromString(scriptDate, QStringLiteral("MM/dd/yyyy"));
}

QString DatedName(const QString &pattern)
{
    const QDateTime now(Today(), TimeOfDay());
    std::tm moment{};
    moment.tm_year = now.date().year() - 1900;
    moment.tm_mon = now.date().month() - 1;
    moment.tm_mday = now.date().day();
    moment.tm_wday = now.date().dayOfWeek() % 7;
    moment.tm_yday = now.date().dayOfYear() - 1;
    moment.tm_hour = now.time().hour();
    moment.tm_min = now.time().minute();
    moment.tm_sec = now.time().second();
    char name[4096];
    const std::size_t length = std::strftime(name, sizeof name, pattern.toLocal8Bit().constData(), &moment);
    // strftime gives nothing for an empty result and for one too long: the pattern stays then.
    return length == 0 ? pattern : QString::fromLocal8Bit(name, qsizetype(length));
}

} // namespace qlon

#include "app/ReportCommand.h"

#include "app/ControlKinds.h"
#include "app/ScriptRunner.h"
#include "core/Clock.h"
#include "core/DateWords.h"
#include "ui/ScreenRegistry.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QWidget>

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
const QCommandLineOption categoryOption(QStringLiteral("category"),
    QStringLiteral("report: food, bar, both, retail, all or a department (main, items-sold)."), QStringLiteral("C"));
const QCommandLineOption serverOption(
    QStringLiteral("server"), QStringLiteral("report: the server's number (server)."), QStringLiteral("N"));
const QCommandLineOption pdfOption(
    QStringLiteral("pdf"), QStringLiteral("report: prints to FILE, a PDF; %Y, %m, %d stand for today."), QStringLiteral("FILE"));
const QCommandLineOption csvOption(
    QStringLiteral("csv"), QStringLiteral("report: exports the list to FILE (main)."), QStringLiteral("FILE"));
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

// What the request asks that its report can't do; empty when nothing.
QString misfit(const ReportRequest &request)
{
    if (!ReportNames().contains(request.name))
        return QStringLiteral("report takes one of ") + ReportNames().join(QStringLiteral(", "));
    if (request.name == serverReport && request.server.isEmpty())
        return QStringLiteral("the server report needs --server N");
    if (request.name != serverReport && !request.server.isEmpty())
        return QStringLiteral("--server is for the server report");
    if (request.name == serverReport && !request.category.isEmpty())
        return QStringLiteral("the server report takes no --category");
    if (request.name != mainReport && !request.csv.isEmpty())
        return QStringLiteral("--csv is for the main report: the others print their rows on standard output");
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
    // A file the request names, dated, then the button that writes it.
    void writeFile(const QString &command, const QString &file, const QString &button)
    {
        if (file.isEmpty())
            return;
        line(command + QLatin1Char(' ') + DatedName(file));
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

// What the main screen and Items Sold show of a run: the span's dates and every row.
void printSpanAndRows(ScriptWriter &script, const QString &screen)
{
    script.line(QStringLiteral("get %1.Label2").arg(screen));
    script.line(QStringLiteral("get %1.Label3").arg(screen));
    script.line(QStringLiteral("rows %1.MList1").arg(screen));
}

void writeMainReport(ScriptWriter &script, const ReportRequest &request, const QString &from, const QString &to)
{
    script.line(QStringLiteral("# The main list: the category's items with their units, sales volume and department totals"));
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand8"));
    script.line(QStringLiteral("wait"));
    setMainSpan(script, request, from, to);
    const qsizetype word = categoryWords.indexOf(request.category.isEmpty() ? QStringLiteral("all") : request.category.toLower());
    if (word >= 0) {
        script.line(QStringLiteral("click QLONlistBuilder1.") + categoryOptions[word]);
    } else {
        script.line(QStringLiteral("pick QLONlistBuilder1.Combo1 ") + request.category);
        script.line(QStringLiteral("click QLONlistBuilder1.SSOption7"));
    }
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand2"));
    script.line(QStringLiteral("click QLONlistBuilder1.SSCommand4"));
    script.line(QStringLiteral("wait"));
    printSpanAndRows(script, QStringLiteral("QLONlistBuilder1"));
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
    script.line(QStringLiteral("click QlonItemsSold.SSCommand4"));
    script.line(QStringLiteral("wait"));
    if (word < 0 && !request.category.isEmpty()) {
        script.line(QStringLiteral("set QlonItemsSold.Combo2 ") + request.category);
        script.line(QStringLiteral("click QlonItemsSold.SSCommand9"));
    }
    printSpanAndRows(script, QStringLiteral("QlonItemsSold"));
    script.line(QStringLiteral("get QlonItemsSold.Label7"));
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
    parser.addOptions(
        {fromOption, toOption, startOption, endOption, categoryOption, serverOption, pdfOption, csvOption, printScriptOption});
    parser.addPositionalArgument(QStringLiteral("report"),
        QStringLiteral("report NAME runs one of the reports (%1) without a window and prints its figures.")
            .arg(ReportNames().join(QStringLiteral(", "))),
        QStringLiteral("[report NAME]"));
}

QString ReadReportRequest(const QCommandLineParser &parser, ReportRequest &request)
{
    const QStringList words = parser.positionalArguments();
    if (words.size() != 2)
        return QStringLiteral("report takes one name: ") + ReportNames().join(QStringLiteral(", "));
    request.name = words[1];
    request.from = parser.value(fromOption);
    request.to = parser.value(toOption);
    for (QString *date : {&request.from, &request.to}) {
        if (!date->isEmpty() && scriptDate(*date).isEmpty())
            return QStringLiteral("--from and --to take YYYY-MM-DD, MM/DD/YYYY or a word such as yesterday");
        *date = scriptDate(*date);
    }
    request.startTime = parser.value(startOption);
    request.endTime = parser.value(endOption);
    request.category = parser.value(categoryOption);
    request.server = parser.value(serverOption);
    request.pdf = parser.value(pdfOption);
    request.csv = parser.value(csvOption);
    request.printScript = parser.isSet(printScriptOption);
    return misfit(request);
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

int RunReport(const ReportRequest &request, QTextStream &out, QTextStream &err)
{
    // Dates left open are those the main screen started with: the site's start dates.
    QWidget *main = Screens().existing(QStringLiteral("QLONlistBuilder1"));
    const auto started = [main](const char *calendar) { return CaptionOf(main->findChild<QWidget *>(QLatin1String(calendar))); };
    QByteArray script = ReportScript(request, started("MonthView1"), started("MonthView2")).toUtf8();
    if (request.printScript) {
        out << script;
        return 0;
    }
    QBuffer lines(&script);
    lines.open(QIODevice::ReadOnly);
    return ScriptRunner(out, err).run(lines);
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

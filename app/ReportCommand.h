#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTextStream>

class QCommandLineParser;

namespace qlon {

// `qlon report NAME [options]`: a report of the program in one line, run as the script of the
// same commands a person would give the screens, so its figures are the screens' figures.
struct ReportRequest
{
    QString name; // one of ReportNames()
    QString from; // a date as the script's `set` takes it; empty: the site's start date
    QString to;
    QString startTime; // empty: the whole day
    QString endTime;
    QString category; // food, bar, both, retail or all, in any case; empty: all
    QString department; // a department of the site, in any case; empty: none
    QString server; // the server report's employee number
    QString pdf; // host paths, with strftime-like %Y, %m, %d of today
    QString csv;
    bool printScript = false;
    bool json = false; // the figures as one JSON object in place of the screens' text
};

QStringList ReportNames();

// The report options of the command line, added to the program's own.
void AddReportOptions(QCommandLineParser &parser);
// The request of a parsed command line whose first word is "report"; an error text when it
// can't be run. Over the chain, Items Sold exports its combined list too.
QString ReadReportRequest(const QCommandLineParser &parser, ReportRequest &request, bool overChain = false);

// What the site has to say against a request, asked before any screen runs, so that a refused line
// changes no file: a department the site hasn't (status 2), an output folder that isn't there (2)
// or can't be written (1), a sales database that isn't there (1). The department takes the site's
// own spelling. The output files are named as they will be written, their dates filled.
struct ReportRefusal
{
    int status = 0; // 0: the request can run
    QString text;
};
ReportRefusal CheckReportOnSite(ReportRequest &request);

// The script of the request. `siteFrom` and `siteTo` stand for dates the request leaves open; the
// output files are named as they will be written.
QString ReportScript(const ReportRequest &request, const QString &siteFrom, const QString &siteTo);

// The day a date of a request, as the script takes it, stands for.
QDate ReportDay(const QString &scriptDate);

// A file name with the date fields of strftime filled from today: items-%Y-%m-%d.pdf.
QString DatedName(const QString &pattern);

} // namespace qlon

#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace qlon {

// The report printer of the site's configuration among the installed ones: the last whose device
// name begins with the trimmed name. An empty name begins every device name, so the last printer
// wins, deliberately; with no match the current printer stays.
QString ChooseReportPrinter(const QStringList &devices, QByteArrayView configuredName, const QString &current);

// What the summary page shows: the server screen's boxes as they stand at the click.
struct ServerSummary
{
    QString server;
    QString salesDate;
    QString totalSales;
    QString liquorSales;
    QString foodSales;
};

// "Print" and "Print List" of the server screen, each one print job on the report printer, which
// becomes the program's current printer, in the configured font size. "Print List" prints the
// two lists the last search wrote, value by value as the system reads comma-separated values, so
// that a comma splits a line. Each gives the PDF's path when the job went to one.
QString PrintServerSummary(const ServerSummary &summary);
QString PrintServerList();

} // namespace qlon

#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace qlon {

class ListRows;

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
// The worker's "Print List": its own list's rows from the second on, as they stand.
QString PrintWorkerList(const ListRows &rows);

} // namespace qlon

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace qlon {

// A printer of the system, as the spooler knows it.
struct SystemPrinter
{
    QString deviceName;
    QString port; // where its jobs go: a device address such as "socket://10.0.0.31:9100"
};

// A document waiting in a printer's queue.
struct PrintJob
{
    int id = 0;
    QString title;
    QString user;
    int kilobytes = 0;
    QDateTime created;
};

// The system's print spooler: its printers and their queues.
class PrintSpooler
{
public:
    virtual ~PrintSpooler() = default;

    virtual QList<SystemPrinter> printers() = 0;
    // Whether a print service answered the last request for the printers: none means that no
    // service runs here, rather than that it has no printers.
    virtual bool answered() const { return true; }
    // The jobs waiting in the printer's queue, oldest first, at most `limit`; none when the
    // request fails.
    virtual QList<PrintJob> jobs(const QString &deviceName, int limit) = 0;
    int pendingJobs(const QString &deviceName, int limit) { return int(jobs(deviceName, limit).size()); }
};

// The spooler the program talks to: CUPS, unless a test put another in its place.
PrintSpooler &Spooler();
// Puts a spooler in CUPS's place; none gives CUPS back.
void SetSpooler(PrintSpooler *spooler);

} // namespace qlon

#pragma once

#include <QList>
#include <QString>

namespace qlon {

// A printer of the system, as the spooler knows it.
struct SystemPrinter
{
    QString deviceName;
    QString port; // where its jobs go: a device address such as "socket://10.0.0.31:9100"
};

// The system's print spooler: its printers and their queues.
class PrintSpooler
{
public:
    virtual ~PrintSpooler() = default;

    virtual QList<SystemPrinter> printers() = 0;
    // The jobs waiting in the printer's queue, at most `limit`; 0 when the request fails.
    virtual int pendingJobs(const QString &deviceName, int limit) = 0;
};

// The spooler the program talks to: CUPS, unless a test put another in its place.
PrintSpooler &Spooler();
// Puts a spooler in CUPS's place; none gives CUPS back.
void SetSpooler(PrintSpooler *spooler);

} // namespace qlon

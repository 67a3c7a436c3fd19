#include "platform/spooler/PrintSpooler.h"

#include <cups/cups.h>

#include <algorithm>

namespace qlon {

namespace {

class CupsSpooler : public PrintSpooler
{
public:
    QList<SystemPrinter> printers() override
    {
        cups_dest_t *dests = nullptr;
        const int count = cupsGetDests(&dests);
        QList<SystemPrinter> found;
        for (int index = 0; index < count; ++index) {
            const cups_dest_t &dest = dests[index];
            if (dest.instance)
                continue;
            const char *uri = cupsGetOption("device-uri", dest.num_options, dest.options);
            found.append({QString::fromUtf8(dest.name), uri ? QString::fromUtf8(uri) : QString()});
        }
        cupsFreeDests(count, dests);
        return found;
    }

    QList<PrintJob> jobs(const QString &deviceName, int limit) override
    {
        cups_job_t *cupsJobs = nullptr;
        const int count = cupsGetJobs(&cupsJobs, deviceName.toUtf8().constData(), 0, CUPS_WHICHJOBS_ACTIVE);
        QList<PrintJob> found;
        for (int index = 0; index < std::min(count, limit); ++index) {
            const cups_job_t &job = cupsJobs[index];
            found.append({job.id, QString::fromUtf8(job.title), QString::fromUtf8(job.user), job.size,
                QDateTime::fromSecsSinceEpoch(job.creation_time)});
        }
        if (count > 0)
            cupsFreeJobs(count, cupsJobs);
        return found;
    }
};

PrintSpooler *replacement = nullptr;

} // namespace

PrintSpooler &Spooler()
{
    static CupsSpooler cups;
    return replacement ? *replacement : cups;
}

void SetSpooler(PrintSpooler *spooler)
{
    replacement = spooler;
}

} // namespace qlon

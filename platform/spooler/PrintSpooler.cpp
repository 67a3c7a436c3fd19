#include "platform/spooler/PrintSpooler.h"

#include <QLibrary>

#include <cups/cups.h>

#include <algorithm>

namespace qlon {

namespace {

// CUPS and the libraries it brings cost a sixth of the program's start-up, and only the printer
// status screen talks to the spooler: the library is loaded when it first does.
class CupsLibrary
{
public:
    CupsLibrary()
        : m_library(QStringLiteral("cups"), 2)
    {
        getDests = resolve<decltype(&cupsGetDests)>("cupsGetDests");
        freeDests = resolve<decltype(&cupsFreeDests)>("cupsFreeDests");
        getOption = resolve<decltype(&cupsGetOption)>("cupsGetOption");
        getJobs = resolve<decltype(&cupsGetJobs)>("cupsGetJobs");
        lastError = resolve<decltype(&cupsLastError)>("cupsLastError");
        freeJobs = resolve<decltype(&cupsFreeJobs)>("cupsFreeJobs");
    }

    bool loaded() const { return getDests && freeDests && getOption && getJobs && freeJobs; }

    decltype(&cupsGetDests) getDests = nullptr;
    decltype(&cupsFreeDests) freeDests = nullptr;
    decltype(&cupsGetOption) getOption = nullptr;
    decltype(&cupsGetJobs) getJobs = nullptr;
    decltype(&cupsFreeJobs) freeJobs = nullptr;
    decltype(&cupsLastError) lastError = nullptr;

private:
    template<typename Function>
    Function resolve(const char *name)
    {
        return reinterpret_cast<Function>(m_library.resolve(name));
    }

    QLibrary m_library;
};

// A system without CUPS has no printers and no queues.
class CupsSpooler : public PrintSpooler
{
public:
    QList<SystemPrinter> printers() override
    {
        const CupsLibrary &cups = library();
        m_answered = false;
        if (!cups.loaded())
            return {};
        cups_dest_t *dests = nullptr;
        const int count = cups.getDests(&dests);
        m_answered = count > 0 || !cups.lastError || cups.lastError() < IPP_STATUS_REDIRECTION_OTHER_SITE;
        QList<SystemPrinter> found;
        for (int index = 0; index < count; ++index) {
            const cups_dest_t &dest = dests[index];
            if (dest.instance)
                continue;
            const char *uri = cups.getOption("device-uri", dest.num_options, dest.options);
            found.append({QString::fromUtf8(dest.name), uri ? QString::fromUtf8(uri) : QString()});
        }
        cups.freeDests(count, dests);
        return found;
    }

    QList<PrintJob> jobs(const QString &deviceName, int limit) override
    {
        const CupsLibrary &cups = library();
        if (!cups.loaded())
            return {};
        cups_job_t *cupsJobs = nullptr;
        const int count = cups.getJobs(&cupsJobs, deviceName.toUtf8().constData(), 0, CUPS_WHICHJOBS_ACTIVE);
        QList<PrintJob> found;
        for (int index = 0; index < std::min(count, limit); ++index) {
            const cups_job_t &job = cupsJobs[index];
            found.append({job.id, QString::fromUtf8(job.title), QString::fromUtf8(job.user), job.size,
                QDateTime::fromSecsSinceEpoch(job.creation_time)});
        }
        if (count > 0)
            cups.freeJobs(count, cupsJobs);
        return found;
    }

    bool answered() const override { return m_answered; }

private:
    static const CupsLibrary &library()
    {
        static const CupsLibrary cups;
        return cups;
    }

    bool m_answered = true;
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

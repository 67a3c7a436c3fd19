#pragma once

#include "app/ReportCommand.h"
#include "app/ReportHeading.h"
#include "platform/FileStamp.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

namespace qlon {

// One `qlon report`: the line checked against the site, the script run on the screens, and the
// figures printed at the end as text or JSON however the run ends, a failure's included. A file the
// request names that the run didn't write is an error, even where the screens pass over a failure.
class ReportRun
{
public:
    ReportRun(const ReportRequest &request, QTextStream &out, QTextStream &err);
    ~ReportRun();
    ReportRun(const ReportRun &) = delete;
    ReportRun &operator=(const ReportRun &) = delete;

    // Before any screen runs: 0, or the status of a refused line, told.
    int refusalOnSite();
    // With the main screen loaded: the status of the run.
    int run();

private:
    int finish(int status, const QString &failure);
    QString unwrittenFile() const;

    ReportRequest m_request;
    QTextStream &m_out;
    QTextStream &m_err;
    ReportHeading m_heading;
    QString m_printed; // what the script printed, the figures
    QTextStream m_figures;
    QList<std::pair<QString, FileStamp>> m_filesBefore; // the files the request names, as they were
};

} // namespace qlon

#pragma once

#include "web/logic/ReportQueue.h"

#include <QString>
#include <QStringList>

#include <chrono>

namespace qlon::web {

// Runs a report as a child `qlon report`, the program's state being per process: a crash or a
// hang of one report can't take the server down, and one that outlives its time limit is killed.
class ReportChild
{
public:
    // `program` is the running qlon; `siteArguments` name the site, as `--drive C=/srv/pos`.
    ReportChild(QString program, QStringList siteArguments, std::chrono::seconds timeLimit);

    ReportOutcome operator()(const ReportJob &job) const;

private:
    QString m_program;
    QStringList m_siteArguments;
    std::chrono::seconds m_timeLimit;
};

} // namespace qlon::web

#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

struct ReportRequest;

// The figures a report's run printed, as one JSON object for a script or a spreadsheet import:
// the report, its status and why it ended, the span, the rows with their fields (numbers as
// numbers), the totals, and the message boxes the run met.
QByteArray ReportJson(const ReportRequest &request, const QString &printed, int status);

} // namespace qlon

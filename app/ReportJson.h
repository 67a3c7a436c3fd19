#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

struct ReportRequest;
struct ReportHeading;

// The figures a report's run printed, as one JSON object for a script or a spreadsheet import:
// the report, its status and why it ended (with the failure's text, which names no file), the
// site and the span, the rows with their fields (numbers as numbers), the totals, and the message
// boxes the run met.
QByteArray ReportJson(
    const ReportRequest &request, const ReportHeading &heading, const QString &printed, int status, const QString &failure);

} // namespace qlon

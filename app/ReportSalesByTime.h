#pragma once

#include "app/ReportCommand.h"

#include <QByteArray>

namespace qlon {

// The main report's JSON with the sales of its list by hour of the day (`byHour`: 24 amounts, from
// midnight) and by day (`byDay`: `date` as YYYY-MM-DD, `volume`), over the span its run used, for
// charts. Other reports, and a run that did not end well, keep their figures as they are.
QByteArray WithSalesByTime(const ReportRequest &request, int status, const QByteArray &json);

} // namespace qlon

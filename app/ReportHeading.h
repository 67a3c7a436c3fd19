#pragma once

#include "app/ReportCommand.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace qlon {

// What every report says first, in one form whatever its screens write: the site, the span and the
// hours of each day.
struct ReportHeading
{
    QString site; // the site's name, or its folder's
    QDate from;
    QDate to;
    QString startTime; // as "11:00 am"
    QString endTime;

    QStringList lines() const;
};

// The heading of a request over a site's span: the request's times in the pickers' own form, the
// whole day where it names none.
ReportHeading HeadingOf(const ReportRequest &request, const QString &site, QDate from, QDate to);

} // namespace qlon

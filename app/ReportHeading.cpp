#include "app/ReportHeading.h"

#include "core/Ansi.h"
#include "core/DateText.h"

namespace qlon {

namespace {

// A time of the request in the pickers' own form; the picker's default when it names none.
QString pickerTime(const QString &requested, const QString &whenNone)
{
    const std::optional<QTime> time = ToTime(ToAnsi(requested));
    return time ? time->toString(QStringLiteral("h:mm ap")) : whenNone;
}

} // namespace

ReportHeading HeadingOf(const ReportRequest &request, const QString &site, QDate from, QDate to)
{
    return {
        site, from, to, pickerTime(request.startTime, QStringLiteral("12:00 am")), pickerTime(request.endTime, QStringLiteral("11:59 pm"))};
}

QStringList ReportHeading::lines() const
{
    return {QStringLiteral("Site: ") + site, QStringLiteral("Span: %1 to %2").arg(from.toString(Qt::ISODate), to.toString(Qt::ISODate)),
        QStringLiteral("Hours: %1 to %2").arg(startTime, endTime)};
}

} // namespace qlon

#include "web/logic/ReportColumns.h"

namespace qlon::web {

QList<ReportColumn> RowColumns(const QString &report)
{
    if (report == QLatin1String("main")) {
        return {{QStringLiteral("name"), QStringLiteral("Item")}, {QStringLiteral("category"), QStringLiteral("Category")},
            {QStringLiteral("price"), QStringLiteral("Price"), ReportColumn::Money},
            {QStringLiteral("units"), QStringLiteral("Units"), ReportColumn::Number},
            {QStringLiteral("volume"), QStringLiteral("Sales volume"), ReportColumn::Money}};
    }
    if (report == QLatin1String("items-sold")) {
        return {{QStringLiteral("units"), QStringLiteral("Units"), ReportColumn::Number}, {QStringLiteral("name"), QStringLiteral("Item")},
            {QStringLiteral("volume"), QStringLiteral("Sales volume"), ReportColumn::Money},
            {QStringLiteral("price"), QStringLiteral("Price"), ReportColumn::Money},
            {QStringLiteral("department"), QStringLiteral("Department")}};
    }
    return {{QStringLiteral("date"), QStringLiteral("Date"), ReportColumn::Date}, {QStringLiteral("time"), QStringLiteral("Time")},
        {QStringLiteral("item"), QStringLiteral("Item")}, {QStringLiteral("price"), QStringLiteral("Price"), ReportColumn::Money},
        {QStringLiteral("class"), QStringLiteral("Class")}, {QStringLiteral("server"), QStringLiteral("Server")}};
}

QString RowsKey(const QString &report)
{
    return report == QLatin1String("server") ? QStringLiteral("sales") : QStringLiteral("rows");
}

QDate RowDate(const QJsonValue &value)
{
    return QDate::fromString(value.toString().trimmed(), QStringLiteral("M/d/yyyy"));
}

} // namespace qlon::web

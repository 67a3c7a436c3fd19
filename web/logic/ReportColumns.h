#pragma once

#include <QDate>
#include <QJsonValue>
#include <QList>
#include <QString>

namespace qlon::web {

// A column of a report's rows as `qlon report --format json` writes them.
struct ReportColumn
{
    enum Kind { Text, Number, Money, Date };
    QString key;
    QString title;
    Kind kind = Text;
};

// The columns of the rows of the main, items-sold or server report, in the screens' order.
QList<ReportColumn> RowColumns(const QString &report);
// The key of the array of rows: `rows`, or `sales` for the server report.
QString RowsKey(const QString &report);
// A date of a row, M/D/YYYY.
QDate RowDate(const QJsonValue &value);

} // namespace qlon::web

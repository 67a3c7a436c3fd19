#include "web/logic/ReportView.h"

#include "web/logic/Html.h"
#include "web/logic/ReportColumns.h"

#include <QDate>
#include <QMap>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace qlon::web {

namespace {

using Column = ReportColumn;

bool isNumeric(const Column &column)
{
    return column.kind == Column::Number || column.kind == Column::Money;
}

QString cellText(const Column &column, const QJsonValue &value)
{
    return column.kind == Column::Money ? MoneyText(value.toDouble()) : NumberText(value.toDouble());
}

bool sortsBefore(const Column &column, const QJsonObject &first, const QJsonObject &second)
{
    if (isNumeric(column))
        return first.value(column.key).toDouble() < second.value(column.key).toDouble();
    if (column.kind == Column::Date)
        return RowDate(first.value(column.key)) < RowDate(second.value(column.key));
    return first.value(column.key).toString().compare(second.value(column.key).toString(), Qt::CaseInsensitive) < 0;
}

QList<QJsonObject> sortedRows(const QList<Column> &columns, const QJsonArray &rows, const TableSort &sort)
{
    QList<QJsonObject> sorted;
    for (const QJsonValue &row : rows)
        sorted.append(row.toObject());
    const auto column = std::find_if(columns.begin(), columns.end(), [&sort](const Column &each) { return each.key == sort.column; });
    if (column == columns.end())
        return sorted;
    std::stable_sort(sorted.begin(), sorted.end(), [&](const QJsonObject &first, const QJsonObject &second) {
        return sort.descending ? sortsBefore(*column, second, first) : sortsBefore(*column, first, second);
    });
    return sorted;
}

QString headerCell(const Column &column, const TableSort &sort, const QString &pageQuery)
{
    const bool descending = sort.column == column.key && !sort.descending;
    const QString link =
        QStringLiteral("/report?%1&sort=%2&order=%3").arg(pageQuery, column.key, QLatin1String(descending ? "desc" : "asc"));
    const QString mark = sort.column != column.key ? QString() : sort.descending ? QStringLiteral(" ▼") : QStringLiteral(" ▲");
    return QStringLiteral("<th class=\"%1\"><a href=\"%2\">%3%4</a></th>")
        .arg(QLatin1String(isNumeric(column) ? "n" : "t"), Escaped(link), Escaped(column.title), mark);
}

// A table of the rows; `footer` is HTML cells already. Only the table named "rows" sorts.
QString table(const QString &id, const QList<Column> &columns, const QJsonArray &rows, const TableSort &sort, const QString &pageQuery,
    const QString &footer = {})
{
    const bool sortable = id == QLatin1String("rows");
    QString html = QStringLiteral("<div class=\"table-box\"><table id=\"%1\"><thead><tr>").arg(id);
    for (const Column &column : columns) {
        html += sortable
            ? headerCell(column, sort, pageQuery)
            : QStringLiteral("<th class=\"%1\">%2</th>").arg(QLatin1String(isNumeric(column) ? "n" : "t"), Escaped(column.title));
    }
    html += QStringLiteral("</tr></thead><tbody>");
    for (const QJsonObject &row : sortedRows(columns, rows, sortable ? sort : TableSort{})) {
        html += QStringLiteral("<tr>");
        for (const Column &column : columns) {
            const QJsonValue value = row.value(column.key);
            html += !isNumeric(column) ? QStringLiteral("<td>%1</td>").arg(Escaped(value.toString()))
                                       : QStringLiteral("<td class=\"n\" data-value=\"%1\">%2</td>")
                                             .arg(NumberText(value.toDouble()), Escaped(cellText(column, value)));
        }
        html += QStringLiteral("</tr>");
    }
    html += QStringLiteral("</tbody>");
    if (!footer.isEmpty())
        html += QStringLiteral("<tfoot><tr>%1</tr></tfoot>").arg(footer);
    return html + QStringLiteral("</table></div>");
}

QString numberCell(double value, bool money)
{
    return QStringLiteral("<td class=\"n\" data-value=\"%1\">%2</td>").arg(NumberText(value), money ? MoneyText(value) : NumberText(value));
}

double sumOf(const QJsonArray &rows, const QString &key)
{
    double sum = 0;
    for (const QJsonValue &row : rows)
        sum += row.toObject().value(key).toDouble();
    return sum;
}

// The department totals of rows that name their department, in order of the departments' names.
QJsonArray departmentTotals(const QJsonArray &rows)
{
    QMap<QString, std::pair<double, double>> totals;
    for (const QJsonValue &row : rows) {
        auto &[units, volume] = totals[row.toObject().value(QStringLiteral("department")).toString()];
        units += row.toObject().value(QStringLiteral("units")).toDouble();
        volume += row.toObject().value(QStringLiteral("volume")).toDouble();
    }
    QJsonArray departments;
    for (auto total = totals.cbegin(); total != totals.cend(); ++total) {
        departments.append(QJsonObject{{QStringLiteral("department"), total.key()}, {QStringLiteral("units"), total->first},
            {QStringLiteral("volume"), total->second}});
    }
    return departments;
}

QString departmentTable(const QJsonArray &departments)
{
    const QList<Column> columns = {{QStringLiteral("department"), QStringLiteral("Department")},
        {QStringLiteral("units"), QStringLiteral("Units"), Column::Number},
        {QStringLiteral("volume"), QStringLiteral("Sales"), Column::Money}};
    const QString footer = QStringLiteral("<td>Grand total</td>") + numberCell(sumOf(departments, QStringLiteral("units")), false) +
        numberCell(sumOf(departments, QStringLiteral("volume")), true);
    return QStringLiteral("<h2>Departments</h2>") + table(QStringLiteral("departments"), columns, departments, {}, {}, footer);
}

QString mainBody(const QJsonObject &report, const TableSort &sort, const QString &pageQuery)
{
    const QJsonArray rows = report.value(QStringLiteral("rows")).toArray();
    const QList<Column> columns = RowColumns(QStringLiteral("main"));
    const QString footer = QStringLiteral("<td colspan=\"3\">Total</td>") + numberCell(sumOf(rows, QStringLiteral("units")), false) +
        numberCell(sumOf(rows, QStringLiteral("volume")), true);
    return table(QStringLiteral("rows"), columns, rows, sort, pageQuery, footer) +
        departmentTable(report.value(QStringLiteral("departments")).toArray());
}

QString itemsSoldBody(const QJsonObject &report, const TableSort &sort, const QString &pageQuery)
{
    const QJsonArray rows = report.value(QStringLiteral("rows")).toArray();
    const QList<Column> columns = RowColumns(QStringLiteral("items-sold"));
    const QString footer = QStringLiteral("<td colspan=\"2\">Total</td>") +
        numberCell(report.value(QStringLiteral("total")).toDouble(), true) + QStringLiteral("<td colspan=\"2\"></td>");
    QString html = table(QStringLiteral("rows"), columns, rows, sort, pageQuery, footer);
    if (report.contains(QStringLiteral("giftCards"))) {
        const QJsonObject cards = report.value(QStringLiteral("giftCards")).toObject();
        html += QStringLiteral("<p id=\"gift-cards\">Gift cards: %1, %2</p>")
                    .arg(NumberText(cards.value(QStringLiteral("count")).toDouble()),
                        MoneyText(cards.value(QStringLiteral("volume")).toDouble()));
    }
    html += QStringLiteral("<p id=\"not-reported\">Sold lines the catalogue lacks: %1</p>")
                .arg(report.value(QStringLiteral("notReported")).toInt());
    return html + departmentTable(departmentTotals(rows));
}

QString serverBody(const QJsonObject &report, const TableSort &sort, const QString &pageQuery)
{
    const QJsonArray sales = report.value(QStringLiteral("sales")).toArray();
    QString html =
        QStringLiteral("<p id=\"search\">%1</p><dl class=\"summary\">").arg(Escaped(report.value(QStringLiteral("search")).toString()));
    for (const auto &[key, title] : {std::pair{"total", "Total"}, std::pair{"liquor", "Liquor"}, std::pair{"food", "Food"}}) {
        html += QStringLiteral("<dt>%1</dt><dd id=\"%2\" data-value=\"%3\">%4</dd>")
                    .arg(QLatin1String(title), QLatin1String(key), NumberText(report.value(QLatin1String(key)).toDouble()),
                        MoneyText(report.value(QLatin1String(key)).toDouble()));
    }
    const QList<Column> columns = RowColumns(QStringLiteral("server"));
    const QString footer = QStringLiteral("<td colspan=\"3\">Total</td>") +
        numberCell(report.value(QStringLiteral("total")).toDouble(), true) + QStringLiteral("<td colspan=\"2\"></td>");
    return html + QStringLiteral("</dl>") + table(QStringLiteral("rows"), columns, sales, sort, pageQuery, footer);
}

// The hour of a time such as 6:05:00 PM, 18:05 or 6:05 pm; -1 when it is none.
int hourOf(const QString &time)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*(\\d{1,2}):\\d{2}(?::\\d{2})?\\s*([AaPp])?[Mm]?\\s*$"));
    const QRegularExpressionMatch match = pattern.match(time);
    if (!match.hasMatch())
        return -1;
    int hour = match.captured(1).toInt();
    const QString half = match.captured(2).toLower();
    if (!half.isEmpty() && (hour < 1 || hour > 12))
        return -1;
    if (!half.isEmpty())
        hour = hour % 12 + (half == QLatin1String("p") ? 12 : 0);
    return hour < 24 ? hour : -1;
}

// The bars of sales by hour and by day; the days run from the first with sales to the last, a day
// without sales as an empty bar.
SalesBreakdown breakdownOf(const QList<double> &hours, const QMap<QDate, double> &days)
{
    SalesBreakdown breakdown;
    if (days.isEmpty())
        return breakdown;
    for (int hour = 0; hour < 24; ++hour)
        breakdown.byHour.append({QStringLiteral("%1:00").arg(hour), hours[hour]});
    for (QDate day = days.firstKey(); day <= days.lastKey(); day = day.addDays(1))
        breakdown.byDay.append({day.toString(Qt::ISODate), days.value(day)});
    return breakdown;
}

QString chartsOf(const QJsonObject &report)
{
    const SalesBreakdown breakdown = SalesBreakdownOf(report);
    if (breakdown.byDay.isEmpty())
        return {};
    return QStringLiteral("<section class=\"charts\">") + SvgBarChart(QStringLiteral("Sales by hour of the day"), breakdown.byHour) +
        SvgBarChart(QStringLiteral("Sales by day"), breakdown.byDay) + QStringLiteral("</section>");
}

} // namespace

TableSort ReadSort(const FormFields &fields)
{
    static const QRegularExpression key(QStringLiteral("^[a-z]{1,20}$"));
    const QString column = fields.value(QStringLiteral("sort"));
    return {key.match(column).hasMatch() ? column : QString(), fields.value(QStringLiteral("order")) == QLatin1String("desc")};
}

SalesBreakdown BreakDownSales(const QJsonArray &sales)
{
    QList<double> hours(24, 0.0);
    QMap<QDate, double> days;
    for (const QJsonValue &value : sales) {
        const QJsonObject sale = value.toObject();
        const QDate day = RowDate(sale.value(QStringLiteral("date")));
        const int hour = hourOf(sale.value(QStringLiteral("time")).toString());
        if (!day.isValid() || hour < 0)
            continue;
        const double price = sale.value(QStringLiteral("price")).toDouble();
        hours[hour] += price;
        days[day] += price;
    }
    return breakdownOf(hours, days);
}

SalesBreakdown SalesBreakdownOf(const QJsonObject &report)
{
    if (!report.contains(QStringLiteral("byHour")))
        return BreakDownSales(report.value(QStringLiteral("sales")).toArray());
    QList<double> hours;
    for (const QJsonValue &amount : report.value(QStringLiteral("byHour")).toArray())
        hours.append(amount.toDouble());
    QMap<QDate, double> days;
    for (const QJsonValue &day : report.value(QStringLiteral("byDay")).toArray()) {
        const QDate date = QDate::fromString(day.toObject().value(QStringLiteral("date")).toString(), Qt::ISODate);
        if (date.isValid())
            days[date] += day.toObject().value(QStringLiteral("volume")).toDouble();
    }
    return hours.size() == 24 ? breakdownOf(hours, days) : SalesBreakdown();
}

QString ReportBody(const QJsonObject &report, const TableSort &sort, const QString &pageQuery)
{
    const QString name = report.value(QStringLiteral("report")).toString();
    const QJsonObject span = report.value(QStringLiteral("span")).toObject();
    QString html;
    // The server's search shows no span of its own.
    if (span.contains(QStringLiteral("from"))) {
        html += QStringLiteral("<p id=\"span\">%1 – %2</p>")
                    .arg(Escaped(span.value(QStringLiteral("from")).toString()), Escaped(span.value(QStringLiteral("to")).toString()));
    }
    for (const QJsonValue &message : report.value(QStringLiteral("messages")).toArray())
        html += QStringLiteral("<p class=\"message\">%1</p>").arg(Escaped(message.toString()));
    const QString tables = name == QLatin1String("main") ? mainBody(report, sort, pageQuery)
        : name == QLatin1String("items-sold")            ? itemsSoldBody(report, sort, pageQuery)
                                                         : serverBody(report, sort, pageQuery);
    return html + QStringLiteral("<div class=\"result\"><div>%1</div>%2</div>").arg(tables, chartsOf(report));
}

} // namespace qlon::web

#include "app/ReportJson.h"

#include "app/ReportCommand.h"
#include "app/ReportHeading.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>

namespace qlon {
namespace {

const QString messagePrefix = QStringLiteral("message: ");

// An amount as the screens write it, "$1,200.00" or "($3.50)", as a number.
double amountOf(QString text)
{
    text = text.trimmed();
    const bool negative = text.startsWith(QLatin1Char('(')) || text.startsWith(QLatin1Char('-'));
    text.remove(QRegularExpression(QStringLiteral("[$,()\\-\\s]")));
    return negative ? -text.toDouble() : text.toDouble();
}

// A printed list row: its text without the tag behind the tab, split at the bars.
QStringList fieldsOf(const QString &line)
{
    return line.section(QLatin1Char('\t'), 0, 0).split(QLatin1Char('|'));
}

QJsonObject mainReport(const QStringList &lines)
{
    QJsonArray rows;
    QJsonArray departments;
    for (const QString &line : lines) {
        const QStringList fields = fieldsOf(line);
        if (fields.size() < 5 || fields[0].startsWith(QLatin1String("****")))
            continue;
        if (fields[0].startsWith(QLatin1String("**"))) {
            departments.append(QJsonObject{{QStringLiteral("department"), fields[0].mid(2)},
                {QStringLiteral("units"), fields[2].toDouble()}, {QStringLiteral("volume"), amountOf(fields[4])}});
            continue;
        }
        rows.append(QJsonObject{{QStringLiteral("name"), fields[0]}, {QStringLiteral("category"), fields[1]},
            {QStringLiteral("price"), fields[2].toDouble()}, {QStringLiteral("units"), fields[3].toDouble()},
            {QStringLiteral("volume"), amountOf(fields[4])}});
    }
    return {{QStringLiteral("rows"), rows}, {QStringLiteral("departments"), departments}};
}

QJsonObject itemsSoldReport(const QStringList &lines)
{
    QJsonObject report;
    QJsonArray rows;
    const QStringList listed = lines.mid(0, qMax(0, lines.size() - 2));
    for (const QString &line : listed) {
        const QStringList fields = fieldsOf(line);
        if (fields.size() == 3) {
            report[QStringLiteral("giftCards")] =
                QJsonObject{{QStringLiteral("count"), fields[0].toDouble()}, {QStringLiteral("volume"), amountOf(fields[2])}};
        } else if (fields.size() >= 5) {
            rows.append(QJsonObject{{QStringLiteral("units"), fields[0].toDouble()}, {QStringLiteral("name"), fields[1].trimmed()},
                {QStringLiteral("volume"), amountOf(fields[2])}, {QStringLiteral("price"), fields[3].trimmed().toDouble()},
                {QStringLiteral("department"), fields[4].trimmed()}});
        }
    }
    report[QStringLiteral("rows")] = rows;
    if (lines.size() >= 2) {
        report[QStringLiteral("total")] = amountOf(lines[lines.size() - 2]);
        report[QStringLiteral("notReported")] = lines.last().toInt();
    }
    return report;
}

// A sale: the server, the date, the item (which may hold commas), the price, the class, the time.
QJsonObject saleOf(const QString &line)
{
    const QStringList fields = line.section(QLatin1Char('\t'), 0, 0).split(QLatin1Char(','));
    if (fields.size() < 6)
        return {{QStringLiteral("text"), line.section(QLatin1Char('\t'), 0, 0)}};
    const qsizetype last = fields.size() - 1;
    return {{QStringLiteral("server"), fields[0]}, {QStringLiteral("date"), fields[1]},
        {QStringLiteral("item"), fields.mid(2, last - 4).join(QLatin1Char(','))}, {QStringLiteral("price"), fields[last - 2].toDouble()},
        {QStringLiteral("class"), fields[last - 1]}, {QStringLiteral("time"), fields[last]}};
}

QJsonObject serverReport(const QStringList &lines)
{
    if (lines.size() < 4)
        return {};
    QJsonArray sales;
    for (const QString &line : lines.mid(4))
        sales.append(saleOf(line));
    return {{QStringLiteral("search"), lines[0]}, {QStringLiteral("total"), amountOf(lines[1])},
        {QStringLiteral("liquor"), amountOf(lines[2])}, {QStringLiteral("food"), amountOf(lines[3])}, {QStringLiteral("sales"), sales}};
}

QString exitReason(int status)
{
    switch (status) {
    case 0: return QStringLiteral("done");
    case 2: return QStringLiteral("refused");
    default: return QStringLiteral("error");
    }
}

} // namespace

QByteArray ReportJson(
    const ReportRequest &request, const ReportHeading &heading, const QString &printed, int status, const QString &failure)
{
    QStringList lines;
    QJsonArray messages;
    for (const QString &line : printed.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (line.startsWith(messagePrefix))
            messages.append(line.mid(messagePrefix.size()));
        else
            lines.append(line);
    }
    QJsonObject report = request.name == QLatin1String("main") ? mainReport(lines)
        : request.name == QLatin1String("items-sold")          ? itemsSoldReport(lines)
                                                               : serverReport(lines);
    report[QStringLiteral("report")] = request.name;
    report[QStringLiteral("status")] = status;
    report[QStringLiteral("exit")] = exitReason(status);
    if (!failure.isEmpty())
        report[QStringLiteral("error")] = failure;
    report[QStringLiteral("site")] = heading.site;
    report[QStringLiteral("span")] =
        QJsonObject{{QStringLiteral("from"), heading.from.toString(Qt::ISODate)}, {QStringLiteral("to"), heading.to.toString(Qt::ISODate)},
            {QStringLiteral("startTime"), heading.startTime}, {QStringLiteral("endTime"), heading.endTime}};
    report[QStringLiteral("messages")] = messages;
    return QJsonDocument(report).toJson(QJsonDocument::Indented);
}

} // namespace qlon

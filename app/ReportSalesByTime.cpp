#include "app/ReportSalesByTime.h"

#include "core/Ansi.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "serversales/logic/SalesByTime.h"
#include "store/SiteConfig.h"
#include "ui/VbComboBox.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QTextStream>

namespace qlon {

namespace {

QJsonObject withSales(QJsonObject report, const SalesByTime &sales)
{
    QJsonArray hours;
    for (const double amount : sales.byHour)
        hours.append(amount);
    QJsonArray days;
    for (auto day = sales.byDay.cbegin(); day != sales.byDay.cend(); ++day)
        days.append(QJsonObject{{QStringLiteral("date"), day.key().toString(Qt::ISODate)}, {QStringLiteral("volume"), day.value()}});
    report[QStringLiteral("byHour")] = hours;
    report[QStringLiteral("byDay")] = days;
    return report;
}

} // namespace

QByteArray WithSalesByTime(const ReportRequest &request, int status, const QByteArray &json)
{
    if (request.name != QLatin1String("main") || status != 0)
        return json;
    const QJsonObject report = QJsonDocument::fromJson(json).object();
    QSet<QByteArray> items;
    for (const QJsonValue &row : report.value(QStringLiteral("rows")).toArray())
        items.insert(TrimBlanks(ToAnsi(row.toObject().value(QStringLiteral("name")).toString())));
    // The span as Calculate Sales read it from the main screen.
    const QLONlistBuilder1 *main = MainScreen();
    const SalesSpan span{ToAnsi(main->Label2->text()), ToAnsi(main->Label3->text()), main->Combo2->text(), main->Combo3->text()};
    try {
        const std::unique_ptr<SalesStore> store = OpenSiteSalesStore(DataPath(SalesDatabaseFile));
        return QJsonDocument(withSales(report, BreakDownSpan(*store, span, items))).toJson(QJsonDocument::Indented);
    } catch (const RuntimeError &error) {
        // The figures stand without their charts.
        QTextStream(stderr) << "qlon: report: the sales by time can't be read: " << error.message().simplified() << Qt::endl;
        return json;
    }
}

} // namespace qlon

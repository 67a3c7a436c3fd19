#include "web/logic/ReportForm.h"
#include "web/logic/ReportView.h"
#include "web/logic/SvgChart.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace qlon::web {
namespace {

const QDate today(2026, 11, 23);

ReportChoice choose(const FormFields &fields)
{
    return ReadReportForm(fields, today);
}

TEST(ReportFormTest, TheFormBecomesTheReportCommandsWordsOrIsRefused)
{
    const ReportChoice main =
        choose({{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("from"), QStringLiteral("2026-11-01")},
            {QStringLiteral("toWord"), QStringLiteral("yesterday")}, {QStringLiteral("to"), QStringLiteral("2026-11-02")},
            {QStringLiteral("start"), QStringLiteral("18:30")}, {QStringLiteral("category"), QStringLiteral("bar")}});
    EXPECT_TRUE(main.error.isEmpty());
    EXPECT_EQ(main.arguments,
        (QStringList{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--format=json"), QStringLiteral("--from=2026-11-01"),
            QStringLiteral("--to=yesterday"), QStringLiteral("--start-time=6:30 pm"), QStringLiteral("--category=bar")}));
    const ReportChoice server = choose({{QStringLiteral("report"), QStringLiteral("server")},
        {QStringLiteral("server"), QStringLiteral("12")}, {QStringLiteral("category"), QStringLiteral("food")}});
    EXPECT_EQ(server.arguments.last(), QStringLiteral("--server=12"));
    EXPECT_EQ(server.arguments.size(), 4);

    // Ten years are the longest span.
    EXPECT_TRUE(choose({{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("from"), QStringLiteral("2016-11-23")},
                           {QStringLiteral("to"), QStringLiteral("2026-11-23")}})
                    .error.isEmpty());
    const QList<FormFields> refused = {{{QStringLiteral("report"), QStringLiteral("weekly")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("from"), QStringLiteral("2016-11-22")},
            {QStringLiteral("to"), QStringLiteral("2026-11-23")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("from"), QStringLiteral("2026-11-23")},
            {QStringLiteral("to"), QStringLiteral("2026-11-22")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("from"), QStringLiteral("11/23/2026")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("fromWord"), QStringLiteral("today-9999")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("end"), QStringLiteral("25:00")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("category"), QStringLiteral("--pdf=/etc/passwd")}},
        {{QStringLiteral("report"), QStringLiteral("main")}, {QStringLiteral("department"), QStringLiteral("Food\n--pdf=x")}},
        {{QStringLiteral("report"), QStringLiteral("server")}, {QStringLiteral("server"), QStringLiteral("12 --pdf=x")}}};
    for (const FormFields &fields : refused)
        EXPECT_FALSE(choose(fields).error.isEmpty()) << fields.values().join(QLatin1Char(' ')).toStdString();
}

QJsonObject json(const char *text)
{
    return QJsonDocument::fromJson(text).object();
}

TEST(ReportViewTest, TablesEscapeTheSitesTextsSortByAColumnAndAddUp)
{
    const QJsonObject report = json(R"({"report":"main","span":{"from":"11/16/2026","to":"11/22/2026"},"messages":["Done <ok>"],
        "rows":[{"name":"<script>alert(1)</script>","category":"Food","price":2.5,"units":3,"volume":7.5},
                {"name":"Ale","category":"Beverage","price":4,"units":10,"volume":40},
                {"name":"Chips","category":"Food","price":1,"units":1,"volume":1}],
        "departments":[{"department":"Food","units":4,"volume":8.5},{"department":"Beverage","units":10,"volume":40}]})");
    const QString page = ReportBody(report, {QStringLiteral("units"), true}, QStringLiteral("report=main"));
    EXPECT_FALSE(page.contains(QLatin1String("<script>")));
    EXPECT_TRUE(page.contains(QLatin1String("&lt;script&gt;")));
    EXPECT_TRUE(page.contains(QLatin1String("Done &lt;ok&gt;")));
    const qsizetype ale = page.indexOf(QLatin1String("Ale"));
    const qsizetype script = page.indexOf(QLatin1String("&lt;script"));
    const qsizetype chips = page.indexOf(QLatin1String("Chips"));
    EXPECT_TRUE(ale < script && script < chips) << page.toStdString();
    // The total of the rows and the grand total of the departments.
    EXPECT_EQ(page.count(QLatin1String("data-value=\"48.5\">$48.50</td>")), 2);
    EXPECT_TRUE(page.contains(QLatin1String("sort=units&amp;order=asc")));
}

TEST(ReportViewTest, AServersSalesBreakDownByHourAndByDayIntoCharts)
{
    const QJsonObject report = json(R"({"report":"server","search":"Search Completed","total":17,"liquor":5,"food":12,
        "sales":[{"server":"12","date":"11/20/2026","item":"Ale","price":5,"class":"L","time":"6:05:00 PM"},
                 {"server":"12","date":"11/22/2026","item":"Soup","price":4,"class":"F","time":"12:30:00 PM"},
                 {"server":"12","date":"11/22/2026","item":"Pie","price":8,"class":"F","time":"12:59:00 AM"},
                 {"server":"12","date":"bad","item":"Odd","price":100,"class":"F","time":"1:00:00 PM"}]})");
    const SalesBreakdown breakdown = BreakDownSales(report.value(QStringLiteral("sales")).toArray());
    ASSERT_EQ(breakdown.byHour.size(), 24);
    EXPECT_EQ(breakdown.byHour[18].value, 5);
    EXPECT_EQ(breakdown.byHour[12].value, 4);
    EXPECT_EQ(breakdown.byHour[0].value, 8);
    ASSERT_EQ(breakdown.byDay.size(), 3);
    EXPECT_EQ(breakdown.byDay[1].label, QStringLiteral("2026-11-21"));
    EXPECT_EQ(breakdown.byDay[1].value, 0);
    EXPECT_EQ(breakdown.byDay[2].value, 12);

    const QString chart = SvgBarChart(QStringLiteral("By day <&>"), breakdown.byDay);
    EXPECT_EQ(chart.count(QLatin1String("<rect")), 3);
    EXPECT_TRUE(chart.contains(QLatin1String("<title>2026-11-22: $12.00</title>")));
    EXPECT_TRUE(chart.contains(QLatin1String("By day &lt;&amp;&gt;")));
    EXPECT_EQ(ReportBody(report, {}, {}).count(QLatin1String("<svg")), 2);

    // The main report brings its own sales by hour and by day.
    QJsonObject main{{QStringLiteral("report"), QStringLiteral("main")}};
    QJsonArray hours;
    for (int hour = 0; hour < 24; ++hour)
        hours.append(hour == 19 ? 40.5 : 0);
    main[QStringLiteral("byHour")] = hours;
    main[QStringLiteral("byDay")] =
        QJsonArray{QJsonObject{{QStringLiteral("date"), QStringLiteral("2026-11-20")}, {QStringLiteral("volume"), 30}},
            QJsonObject{{QStringLiteral("date"), QStringLiteral("2026-11-23")}, {QStringLiteral("volume"), 10.5}}};
    const SalesBreakdown mainBreakdown = SalesBreakdownOf(main);
    EXPECT_EQ(mainBreakdown.byHour[19].value, 40.5);
    EXPECT_EQ(mainBreakdown.byDay.size(), 4);
    EXPECT_EQ(ReportBody(main, {}, {}).count(QLatin1String("<svg")), 2);
}

} // namespace
} // namespace qlon::web

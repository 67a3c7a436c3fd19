#include "serversales/ServerPaper.h"
#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/ListRows.h"
#include "store/SiteConfig.h"
#include "tests/support/RecordingOutput.h"
#include "tests/support/TempSite.h"
#include "ui/LinePrinter.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ServerPaperTest, TheLastPrinterWhoseNameBeginsWithTheConfiguredOneIsChosen)
{
    const QStringList devices = {
        QStringLiteral("HP LaserJet"), QStringLiteral("Epson Bar"), QStringLiteral("HP Office"), QStringLiteral("Kit")};
    EXPECT_EQ(ChooseReportPrinter(devices, "HP  ", QStringLiteral("Epson Bar")), QStringLiteral("HP Office"));
    EXPECT_EQ(ChooseReportPrinter(devices, "Kitchen", QStringLiteral("Epson Bar")), QStringLiteral("Epson Bar"))
        << "a name longer than the device name doesn't match it";
    EXPECT_EQ(ChooseReportPrinter(devices, "", {}), QStringLiteral("Kit")) << "an empty name matches every printer";
    EXPECT_EQ(ChooseReportPrinter({}, "HP", QStringLiteral("Epson Bar")), QStringLiteral("Epson Bar"));
}

class ServerPaperPrintTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        FixClock(QDateTime(QDate(2026, 11, 23), QTime(9, 0)));
        Site() = SiteGlobals{};
        Site().SiteRoot = "C:\\Quillon\\";
        Site().DataRoot = "C:\\Quillon\\";
        Site().Config.setField(IniRec2300::ReportFontSize, "10");
        SetReportOutputFactory([this] { return std::make_unique<test::RecordingOutput>(printed, pageHeight); });
    }

    void TearDown() override
    {
        SetReportOutputFactory({});
        SetCurrentPrinter({});
        FixClock({});
    }

    QByteArrayList lines() const
    {
        QByteArrayList texts;
        for (const test::Printed &line : printed)
            texts.append(ToAnsi(line.values.value(0)));
        return texts;
    }

    test::TempSite site;
    QList<test::Printed> printed;
    double pageHeight = 792;
};

TEST_F(ServerPaperPrintTest, TheSummaryShowsTheBoxesAsTheyStand)
{
    EXPECT_TRUE(PrintServerSummary(
        {QStringLiteral("1002"), QStringLiteral("11/16/2026"), QStringLiteral("$18.25"), QStringLiteral("$6.00"), QStringLiteral("$12.25")})
                    .isEmpty());
    const QByteArray rule(32, '=');
    EXPECT_EQ(lines(),
        (QByteArrayList{rule, "ServerSales Report", "11/23/2026", rule, "Server ID      1002", "Sales Date    11/16/2026",
            "Total Sales   $18.25", "Total Liquor  $6.00", "Total Food    $12.25", "", "end Report  ", "", rule}));
}

TEST_F(ServerPaperPrintTest, TheListReadsValuesSoACommaSplitsALineAndFullPagesGoOn)
{
    site.write(QStringLiteral("Quillon/Temp/TempList.Tmp"), "~~~~\r\n  Server 1002\r\nRum\t6\tLiquor\r\nGrand Total Sales\t$1,234.50\r\n");
    site.write(QStringLiteral("Quillon/Temp/TempList2.Tmp"), "Liquor\t\t$6.00\r\n");
    pageHeight = 100; // eight lines of 12.5 points
    PrintServerList();
    const QByteArray rule(32, '=');
    EXPECT_EQ(lines(),
        (QByteArrayList{rule, "ServerSales Report", "Items Sold List", rule, "~~~~", "Server 1002", "Rum\t6\tLiquor",
            "Grand Total Sales\t$1", "234.50", rule, " END REPORT Items Sold", " Monday 11/23/2026", " ", " ", " ", rule,
            "     ****   TOTALS   ***", rule, "Liquor\t\t$6.00"}));
    EXPECT_EQ(printed.at(7).page, 1);
    EXPECT_EQ(printed.at(8).page, 2);
    EXPECT_EQ(printed.last().page, 3);
}

TEST_F(ServerPaperPrintTest, TheWorkersListPrintsItsRowsFromTheSecondAsTheyStand)
{
    ListRows rows;
    rows.setSeparator(',');
    for (const char *row : {"first,row", "1000,1/22/2005,Rum,6,L", "1000,1/22/2005,Ale,4,Beer"})
        rows.addRow(row);
    PrintWorkerList(rows);
    const QByteArray rule(32, '=');
    EXPECT_EQ(lines(),
        (QByteArrayList{rule, "ServerSales Report", "Items Sold List", rule, "1000,1/22/2005,Rum,6,L", "1000,1/22/2005,Ale,4,Beer", rule}));
}

} // namespace
} // namespace qlon

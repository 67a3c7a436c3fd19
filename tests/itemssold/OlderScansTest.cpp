#include "itemssold/logic/OlderScans.h"

#include "core/RecordFile.h"
#include "platform/FileLock.h"
#include "store/SiteConfig.h"
#include "tests/platform/StationHold.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/Printers.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::CatalogueItem;

QByteArray line(const char *date, const char *item, const char *type, const char *time)
{
    return QByteArray("\"") + date + "\",1,\"" + item + "\",2,\"" + type + "\",\"" + time + "\",\"\",\"\"\r\n";
}

class NeverStop : public ScanProgress
{
    void setMaximum(int) override { }
    void setValue(int) override { }
    bool stopRequested() override { return false; }
};

class OlderScansTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Site().DataRoot = "C:\\Quillon\\";
        Site().SiteRoot = "C:\\Quillon\\";
        write("Quillon/ini/Button0.dat", {CatalogueItem({"Burger"}), CatalogueItem({"Fries"}), CatalogueItem({"Avaliable"})});
        ItemRec500 lager = CatalogueItem({"Lager", "Beer"});
        lager.setField(ItemRec500::VisibleFlag, "1");
        write("Quillon/data/BeerDraft.dat", {lager, CatalogueItem({"Stout", "Beer"})});
        // Monday the 1st of March 2004 to Thursday the 4th.
        site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"),
            line("03/01/04", "Burger", "F", "11:00 PM") + line("03/02/04", "Burger", "F", "12:00 PM") +
                line("03/03/04", "Fries", "F", "8:00 AM") + line("03/04/04", "Lager", "L", "1:00 AM") +
                line("03/04/04", "Burger", "F", "3:00 AM") + line("03/02/04", "Gift Card", "R", "9:00 AM"));
    }

    void write(const char *path, const QList<ItemRec500> &items)
    {
        QByteArray bytes;
        for (const ItemRec500 &item : items)
            bytes += item.bytes();
        site.write(QString::fromLatin1(path), bytes);
    }

    QByteArrayList sold(OlderScan kind, const ScanSpan &span)
    {
        NeverStop never;
        return quantitiesAndNames(RunOlderScan(kind, LoadButtonTable(), span, never));
    }

    QByteArrayList soldByTheFullScan(const ScanSpan &span)
    {
        NeverStop never;
        const QByteArrayList catalogue = {"Burger            |1|F|Food", "Fries             |1|F|Food", "Lager             |1|L|Beer"};
        return quantitiesAndNames(ScanSalesFiles(
            catalogue, span, [] { return QByteArray("A"); }, never));
    }

    static QByteArrayList quantitiesAndNames(const SalesScan &scan)
    {
        QByteArrayList lines;
        for (const ReportLine &line : ReportLines(scan))
            lines.append(line.printText.split('\t').mid(0, 2).join(' ').simplified());
        return lines;
    }

    test::TempSite site;
};

TEST_F(OlderScansTest, TheHoursBindEveryDaySoTenAtNightToTwoInTheMorningKeepsNothing)
{
    const ScanSpan overnight{"03/01/04", "03/04/04", "10:00 pm", "2:00 am"};
    for (const OlderScan kind : {OlderScan::Food, OlderScan::Bar, OlderScan::Both})
        EXPECT_TRUE(sold(kind, overnight).isEmpty());
    EXPECT_EQ(soldByTheFullScan(overnight), (QByteArrayList{"2 Burger", "1 Fries", "1 Lager"}))
        << "the full scan keeps Tuesday and Wednesday whole";
}

TEST_F(OlderScansTest, EachScanGathersItsOwnCatalogueAndLines)
{
    const ScanSpan allDay{"03/01/04", "03/04/04", "12:00 am", "11:59 pm"};
    EXPECT_EQ(sold(OlderScan::Food, allDay), (QByteArrayList{"3 Burger", "1 Fries"}));
    EXPECT_EQ(sold(OlderScan::Bar, allDay), (QByteArrayList{"1 Lager"})) << "only shown drinks, only liquor lines";
    EXPECT_EQ(sold(OlderScan::Both, allDay), (QByteArrayList{"3 Burger", "1 Fries", "1 Lager"}));

    NeverStop never;
    EXPECT_EQ(RunOlderScan(OlderScan::Food, LoadButtonTable(), allDay, never).giftCount, 1);
    EXPECT_EQ(RunOlderScan(OlderScan::Bar, LoadButtonTable(), allDay, never).giftCount, 0) << "the bar scan counts no gifts";
}

// Figures that left out a month a station holds would read as a quiet day: every scan ends with
// the platform's error naming the file, unless the station lets go within the program's wait.
TEST_F(OlderScansTest, AMonthAStationHoldsEndsEveryScanNamingItUnlessReleasedWithinTheWait)
{
    const ScanSpan allDay{"03/01/04", "03/04/04", "12:00 am", "11:59 pm"};
    const QString month = site.hostPath(QStringLiteral("Quillon/data/ItemsSold032004.DAT"));
    const std::function<QByteArrayList()> scans[] = {[&] { return soldByTheFullScan(allDay); },
        [&] { return sold(OlderScan::Food, allDay); }, [&] { return sold(OlderScan::Bar, allDay); },
        [&] { return sold(OlderScan::Both, allDay); }};
    for (const std::function<QByteArrayList()> &scan : scans) {
        const test::StationHold station(month);
        ASSERT_TRUE(station.held());
        try {
            ADD_FAILURE() << "counted without the month: " << scan().join(", ").constData();
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), RuntimeError::PermissionDenied);
            EXPECT_EQ(error.detail(), month);
        }
    }

    SetStationWait(std::chrono::seconds(20));
    for (const std::function<QByteArrayList()> &scan : {scans[0], scans[3]}) {
        const test::StationHold writing(month, std::chrono::milliseconds(300));
        EXPECT_EQ(scan(), (QByteArrayList{"3 Burger", "1 Fries", "1 Lager"}));
    }
    SetStationWait(std::chrono::milliseconds(100));
}

} // namespace
} // namespace qlon

#include "itemssold/logic/SalesFileScan.h"
#include "store/SiteConfig.h"
#include "tests/support/TempSite.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArray catalogueRow(const char *name, const char *price, char itemClass, const char *department)
{
    return QByteArray(name).leftJustified(18) + '|' + QByteArray(price).leftJustified(10) + '|' + itemClass + '|' +
        QByteArray(department).leftJustified(20);
}

QByteArray line(const char *date, const char *quantity, const char *item, const char *price, const char *type, const char *time)
{
    return QByteArray("\"") + date + "\"," + quantity + ",\"" + item + "\"," + price + ",\"" + type + "\",\"" + time + "\",\"\",\"\"\r\n";
}

class StopAfter : public ScanProgress
{
public:
    explicit StopAfter(int questions = 1000000)
        : m_questions(questions)
    {
    }
    void setMaximum(int) override { }
    void setValue(int) override { }
    bool stopRequested() override { return --m_questions < 0; }

private:
    int m_questions;
};

class SalesFileScanTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // The monthly files lie under the data root; the reject file stands in the configuration's folder.
        Site().SiteRoot = "C:\\Station\\";
        Site().DataRoot = "C:\\Quillon\\";
        site.write(QStringLiteral("Station/Items.tmp"), {});
        site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"),
            line("03/01/04", "2", "Burger", "6.5", "F", "7:00 PM") + line("03/01/04", "1", "Burger", "6.5", "F", "5:00 PM") +
                line("03/02/04", "1", "Cola", "1.25", "L", "1:00 AM") + line("03/02/04", "1", "Cola", "1.25", "L", "3:00 AM") +
                line("03/01/04", "1", "Gift Card", "25", "R", "4:00 PM") + line("03/01/04", "1", "ADD Cheese", "1", "F", "8:00 PM") +
                line("03/01/04", "1", "Mystery", "3", "L", "8:00 PM") + line("03/01/04", "1", "", "9", "F", "8:00 PM") +
                line("03/05/04", "1", "Burger", "6.5", "F", "8:00 PM"));
        site.write(QStringLiteral("Quillon/data/ItemsSold042004.DAT"), line("04/01/04", "1", "Cola", "1.25", "L", "1:00 PM"));
    }

    SalesScan scan(const QByteArray &mode, ScanProgress &&progress = StopAfter())
    {
        const QByteArrayList catalogue = {catalogueRow("Burger", "6.50", 'F', "Food"), catalogueRow("Burger", "7.00", 'F', "Food"),
            catalogueRow("Cola", "1.25", 'L', "Beverage")};
        return ScanSalesFiles(
            catalogue, {"03/01/04", "03/02/04", "6:00 pm", "2:00 am"}, [mode] { return mode; }, progress);
    }

    test::TempSite site;
};

TEST_F(SalesFileScanTest, LinesCountOnTheFirstRowOfTheirNameWithinTheSpan)
{
    const SalesScan all = scan("A");
    ASSERT_EQ(all.rows.size(), 4u) << "three rows and the empty one past them";
    EXPECT_EQ(all.rows[0].quantity, 2);
    EXPECT_DOUBLE_EQ(all.rows[0].amount, 6.5) << "the price is never multiplied by the quantity";
    EXPECT_EQ(all.rows[1].quantity, 0) << "a second row of the same name counts nothing";
    EXPECT_DOUBLE_EQ(all.rows[2].amount, 1.25);
    EXPECT_DOUBLE_EQ(all.rows[3].amount, 9) << "an empty item counts on the empty row past the last";
    EXPECT_EQ(all.giftCount, 1);
    EXPECT_DOUBLE_EQ(all.giftTotal, 25);
    EXPECT_EQ(all.notReported, QByteArrayList{"Mystery"});
    EXPECT_EQ(all.lastClass, "L");
    EXPECT_FALSE(all.stopped);
    const std::vector<ReportLine> report = ReportLines(all);
    ASSERT_EQ(report.size(), 2u);
    EXPECT_EQ(report[0].listText, "2|Burger            |$6.50|6.50      |Food                ");
    EXPECT_EQ(report[1].printText, "1\tCola              \t$1.25");
    EXPECT_DOUBLE_EQ(report[1].amount, 1.25);

    EXPECT_TRUE(scan("F").notReported.isEmpty()) << "a food report leaves liquor lines out";
    EXPECT_EQ(scan("L").notReported, QByteArrayList{"Mystery"});
}

TEST_F(SalesFileScanTest, AStopEndsTheScanAndShortNamesGetThreeBlanks)
{
    EXPECT_TRUE(scan("A", StopAfter(1)).stopped);
    SalesScan shortNames;
    shortNames.rows = {{"Fourteen chars", "1", "Food", 2, 1}, {"Fifteen chars!!", "1", "Food", 2, 1}};
    const std::vector<ReportLine> report = ReportLines(shortNames);
    ASSERT_EQ(report.size(), 2u);
    EXPECT_EQ(report[0].listText, "1|Fourteen chars   |$2.00|1|Food");
    EXPECT_EQ(report[1].listText, "1|Fifteen chars!!|$2.00|1|Food");
}

// The edges a slip would move: the span's ends, the case of the gift and modifier tests, a
// refund, and the class letter that chooses the "not reported" message.
TEST_F(SalesFileScanTest, TheSpansEdgesCountAndTheTestsKeepTheirCase)
{
    site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"),
        line("03/01/04", "1", "Burger", "6.5", "F", "6:00 PM") + line("03/01/04", "1", "Burger", "6.5", "F", "5:59:59 PM") +
            line("03/02/04", "1", "Burger", "6.5", "F", "2:00:45 AM") + line("03/02/04", "1", "Burger", "6.5", "F", "2:01 AM") +
            line("03/01/04", "1", "gift card", "25", "R", "8:00 PM") + line("03/01/04", "-3", "Cola", "-3.75", "L", "8:00 PM") +
            line("03/01/04", "1", "NO ONIONS", "0", "F", "8:00 PM") + line("03/01/04", "1", "No onions", "0", "F", "8:00 PM"));
    QByteArrayList catalogue = {catalogueRow("Burger", "6.50", 'F', "Food"), catalogueRow("Cola", "1.25", 'L', "Beverage")};
    for (int filler = 0; filler < 4001; ++filler)
        catalogue.append(catalogueRow("Filler", "1", 'F', "Food"));
    catalogue.append(catalogueRow("Past The Table", "1", 'R', "Retail"));
    StopAfter never;
    const SalesScan both = ScanSalesFiles(
        catalogue, {"03/01/04", "03/02/04", "6:00 pm", "2:00 am"}, [] { return QByteArray("B"); }, never);

    EXPECT_EQ(both.rows[0].quantity, 2) << "6:00 PM on the first day and 2:00:45 AM, in whole minutes 2:00, on the last";
    EXPECT_EQ(both.giftCount, 0) << "\"gift card\" isn't a gift";
    EXPECT_EQ(both.notReported, (QByteArrayList{"gift card", "No onions"})) << "\"NO \" is a modifier, \"No \" isn't";
    EXPECT_EQ(both.rows.size(), 4002u) << "rows past the table aren't kept";
    EXPECT_EQ(both.lastClass, "R") << "the class of the last catalogue row, also past the table";
    const std::vector<ReportLine> report = ReportLines(both);
    ASSERT_EQ(report.size(), 2u);
    EXPECT_EQ(report[1].listText.left(29), "-3|Cola              |($3.75)") << "a refund still makes its line";

    const SalesScan end = ScanSalesFiles(
        catalogue, {"03/01/04", "03/02/04", "6:00 pm", "11:59 pm"}, [] { return QByteArray("F"); }, never);
    EXPECT_EQ(end.rows[0].quantity, 3) << "a span ending at 11:59 pm keeps 2:01 AM on its last day";
    EXPECT_EQ(end.notReported, QByteArrayList{"No onions"}) << "a food report leaves the retail line out";
}

// The old search walked the table from the top for every line; the scan finds the same first row.
TEST_F(SalesFileScanTest, EveryLineCountsWhereAWalkFromTheTopFindsItsName)
{
    QRandomGenerator random(11);
    const auto name = [&] { return "Item " + QByteArray::number(random.bounded(60)); };
    QByteArrayList catalogue;
    for (int row = 0; row < 300; ++row)
        catalogue.append(catalogueRow(random.bounded(10) == 0 ? "" : name().constData(), "1", 'F', "Food"));
    QByteArray lines;
    QList<QByteArray> items;
    for (int index = 0; index < 2000; ++index) {
        const QByteArray item = random.bounded(20) == 0 ? QByteArray() : (random.bounded(2) ? " " : "") + name();
        items.append(item);
        lines += line("03/01/04", "1", item.constData(), "1", "F", "9:00 PM");
    }
    site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), lines);
    StopAfter never;
    const SalesScan found = ScanSalesFiles(
        catalogue, {"03/01/04", "03/02/04", "6:00 pm", "2:00 am"}, [] { return QByteArray("A"); }, never);

    std::vector<double> walked(catalogue.size() + 1, 0);
    for (const QByteArray &item : items) {
        for (qsizetype row = 0; row <= catalogue.size(); ++row) {
            const QByteArray rowName = row < catalogue.size() ? catalogue[row].split('|').first().trimmed() : QByteArray();
            if (rowName == item.trimmed()) {
                ++walked[row];
                break;
            }
        }
    }
    ASSERT_EQ(found.rows.size(), walked.size());
    for (std::size_t row = 0; row < walked.size(); ++row)
        EXPECT_EQ(found.rows[row].quantity, walked[row]) << "row " << row;
}

// A month is read from the file's own bytes while its records are in step, and from its start by
// the store's reader once one isn't: the two readings count alike.
TEST_F(SalesFileScanTest, AMonthInStepCountsAsTheStoresReaderCountsIt)
{
    QRandomGenerator random(17);
    const auto pick = [&](const QByteArrayList &texts) { return texts.at(random.bounded(int(texts.size()))).constData(); };
    const QByteArrayList items = {"Burger", " Burger  ", "Cola", "Gift Card", "ADD Cheese", "Mystery", "", "Lite Beer", "No onions"};
    const QByteArrayList dates = {"02/29/04", "03/01/04", "03/02/04", "03/03/04", "03/1/04", "03/01/04 6:00 PM"};
    const QByteArrayList times = {"5:59 PM", "6:00 PM", "7:00 PM", "1:59 AM", "2:00:30 AM", "2:01 AM", "", "late"};
    const QByteArrayList numbers = {"6.5", "1.25", "12.1234", "-3", " 7  ", "", "abc", "0.005"};
    const QByteArrayList types = {"F", "L", "R", " 1 ", "0", ""};
    QByteArray lines;
    for (int index = 0; index < 3000; ++index)
        lines += line(pick(dates), pick(numbers), pick(items), pick(numbers), pick(types), pick(times));
    for (const QByteArray mode : {"B", "F"}) {
        const auto scanOf = [&](const QByteArray &month) {
            site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), month);
            return scan(mode);
        };
        site.write(QStringLiteral("Station/Items.tmp"), "left from before");
        const SalesScan inStep = scanOf(lines);
        ASSERT_EQ(inStep.rejects, 0) << "every record in step";
        EXPECT_EQ(site.read(QStringLiteral("Station/Items.tmp")), "") << "each month's opening empties the reject file";
        ASSERT_NE(inStep.rows[0].quantity, 0) << mode.constData();
        const SalesScan recordByRecord = scanOf(lines + "x,x,x,x,x,x,x,x\r\n");
        EXPECT_EQ(recordByRecord.rejects, inStep.rejects + 1) << "the record out of step at the end";
        ASSERT_EQ(recordByRecord.rows.size(), inStep.rows.size());
        for (std::size_t row = 0; row < inStep.rows.size(); ++row) {
            EXPECT_EQ(recordByRecord.rows[row].quantity, inStep.rows[row].quantity) << mode.constData() << " row " << row;
            EXPECT_EQ(recordByRecord.rows[row].amount, inStep.rows[row].amount) << mode.constData() << " row " << row;
        }
        EXPECT_EQ(recordByRecord.notReported, inStep.notReported) << mode.constData();
        EXPECT_EQ(recordByRecord.giftCount, inStep.giftCount) << mode.constData();
        EXPECT_EQ(recordByRecord.giftTotal, inStep.giftTotal) << mode.constData();
    }
}

} // namespace
} // namespace qlon

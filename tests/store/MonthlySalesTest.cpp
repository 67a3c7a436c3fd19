#include "store/MonthlySales.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/Format.h"
#include "store/SiteConfig.h"
#include "tests/support/TempSite.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace qlon {
namespace {

class MonthlySalesTest : public ::testing::Test
{
protected:
    void SetUp() override { Site().DataRoot = "C:\\Quillon\\"; }

    void writeMonths(QDate first, QDate last)
    {
        for (QDate month = first; month <= last; month = month.addMonths(1))
            site.write(QStringLiteral("Quillon/data/ItemsSold%1.DAT").arg(month.toString(u"MMyyyy")), {});
    }

    test::TempSite site;
};

TEST_F(MonthlySalesTest, TheWalkStepsFromTheFromDateUntilItsOldEndOrTheLastFile)
{
    EXPECT_EQ(MonthFileName(QDate(2004, 3, 9)), "C:\\Quillon\\data\\ItemsSold032004.DAT");
    writeMonths(QDate(2004, 1, 1), QDate(2006, 12, 1));
    // Not bounded by the span: the walk goes on until "02/31/05" reads as 31 May 2002, before
    // 15 February 2005.
    const QList<QDate> fromMarch = MonthWalk("03/15/04");
    ASSERT_EQ(fromMarch.size(), 11);
    EXPECT_EQ(fromMarch.last(), QDate(2005, 1, 15));
    EXPECT_EQ(MonthWalk("01/15/05"), QList<QDate>{QDate(2005, 1, 15)});
    EXPECT_EQ(MonthWalk("03/15/06").size(), 10) << "2006 never meets the old end: the last file ends the walk";
    // Each step is from the from date, so a span from the 31st takes each month's last day.
    const QList<QDate> fromThe31st = MonthWalk("01/31/04");
    EXPECT_EQ(fromThe31st.mid(0, 4), (QList<QDate>{QDate(2004, 1, 31), QDate(2004, 2, 29), QDate(2004, 3, 31), QDate(2004, 4, 30)}));
    EXPECT_TRUE(MonthWalk("not a date").isEmpty());
    EXPECT_EQ(MonthWalk("12/01/07"), QList<QDate>{QDate(2007, 12, 1)}) << "no later file";
}

TEST_F(MonthlySalesTest, ARecordAFieldShortIsRejectedAndReadingGoesOnInStep)
{
    const QString path = site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"),
        "\"03/01/04\",2,\"Burger\",6.5,\"F\",\"6:05 PM\",\"\",\"\"\r\n"
        "\"03/01/04\",1,\"Fries\",2.5,\"F\",\"6:06 PM\",\"\"\r\n"
        "\"03/02/04\",1,\"Cola\",1.5,\"L\",\"1:00 PM\",\"\",\"\"\r\n"
        "\"03/02/04\",3,\"Tea\",2,\"L\",\"2:00 PM\"\r\n\"\",\"\"\r\n"
        "\"03/03/04\",1,\"Soup\",4,\"F\",\"3:00 PM\",\"\",\"\"\r\n"
        "\"03/04/04\",1,\"Cut\"\r\n"
        "\"03/05/04\",2,\"Half\",4,\"F\",\"3:00 PM\",\"\",");
    QByteArrayList items;
    QByteArrayList extras;
    int rejects = 0;
    {
        MonthlySalesFile month(path, site.hostPath(QStringLiteral("Quillon/Items.tmp")));
        while (const std::optional<MonthlyRecord> record = month.next()) {
            items.append(record->at(SoldItem));
            extras.append(record->at(Extra2));
        }
        rejects = month.rejects();
    }
    // The short record takes the next one's date; the next is rejected, and seven fields later
    // the reader is in step again. The last line, which a station is still writing, isn't read.
    EXPECT_EQ(items, (QByteArrayList{"Burger", "Fries", "Soup", "Cut"}));
    EXPECT_EQ(extras.at(1), "03/02/04");
    EXPECT_EQ(extras.at(3), "") << "a record cut by the last line end keeps the fields of the one before";
    EXPECT_EQ(rejects, 1);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Items.tmp")), "\"1|Cola|1.5|L|1:00 PM|||03/02/04|\"\r\n");
}

TEST_F(MonthlySalesTest, ADateWithoutItsSlashInPlaceIsOutOfStepAndTheReaderFindsItsStepAgain)
{
    QByteArray lines;
    for (int number = 1; number <= 20; ++number) {
        const QByteArray date = number == 2 ? QByteArray("1/5/04") : QByteArray("03/01/04");
        lines += "\"" + date + "\",1,\"Item " + QByteArray::number(number) + "\",1,\"F\",\"6:05 PM\",\"\",\"\"\r\n";
    }
    const QString path = site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), lines);
    QByteArrayList items;
    int rejects = 0;
    {
        MonthlySalesFile month(path, site.hostPath(QStringLiteral("Quillon/Items.tmp")));
        while (const std::optional<MonthlyRecord> record = month.next())
            items.append(record->at(SoldItem));
        rejects = month.rejects();
    }
    // Each reject takes seven more fields, so the reader steps one field back each time and is
    // in step again after eight.
    EXPECT_EQ(rejects, 8);
    EXPECT_EQ(items, (QByteArrayList{"Item 1", "Item 17", "Item 18", "Item 19", "Item 20"}));
    EXPECT_TRUE(site.read(QStringLiteral("Quillon/Items.tmp")).startsWith("\"1/5/04|1|Item 2|1|F|6:05 PM|||\"\r\n"));
}

QList<MonthlyRecord> readCopies(MonthlySalesFile &month)
{
    QList<MonthlyRecord> records;
    while (const std::optional<MonthlyRecord> record = month.next())
        records.append(*record);
    return records;
}

QList<MonthlyRecord> readInViews(MonthlySalesFile &month)
{
    QList<MonthlyRecord> records;
    while (const std::optional<MonthlyRecordView> views = month.nextInStep()) {
        MonthlyRecord record;
        std::transform(views->begin(), views->end(), record.begin(), [](QByteArrayView view) { return view.toByteArray(); });
        records.append(record);
    }
    return records;
}

// Read as views, a month gives the records the store's reader gives, up to the first that is out
// of step, and writes no reject.
TEST_F(MonthlySalesTest, ViewsInStepAreTheRecordsUpToTheFirstOutOfStep)
{
    QByteArray lines;
    for (int number = 1; number <= 3000; ++number) {
        const QByteArray date = number == 2500 ? QByteArray("3/1/04") : QByteArray("03/01/04");
        lines += "\"" + date + "\"," + QByteArray::number(number % 4) + ",\"Item " + QByteArray::number(number) + "\",\"" +
            QByteArray::number(number % 50) + ".25\",\"F\",\"6:05 PM\",\"\",\"\"\r\n";
    }
    const QString rejects = site.hostPath(QStringLiteral("Quillon/Items.tmp"));
    const QString path = site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), lines);
    QList<MonthlyRecord> copies;
    {
        MonthlySalesFile month(path, rejects);
        copies = readCopies(month);
    }
    ASSERT_EQ(copies.size(), 2985) << "the record out of step and what the reader takes until it is in step again";
    {
        MonthlySalesFile month(path, rejects);
        EXPECT_EQ(readInViews(month), copies.mid(0, 2499));
        EXPECT_TRUE(month.outOfStep());
    }
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Items.tmp")), "");

    // A line a station is still writing at the end is no record out of step: it isn't read.
    site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"), lines.replace("\"3/1/04\"", "\"03/01/04\"") + "\"03/01/04\",1,\"It");
    MonthlySalesFile month(path, rejects);
    const QList<MonthlyRecord> whole = readInViews(month);
    EXPECT_FALSE(month.outOfStep());
    EXPECT_EQ(whole.size(), 3000);
    EXPECT_EQ(whole.mid(0, 2499), copies.mid(0, 2499));
}

TEST(MonthlyValuesTest, TypesAndPricesAreNormalised)
{
    EXPECT_EQ(NormalizedType(" 1 "), "F");
    EXPECT_EQ(NormalizedType("0"), "F");
    EXPECT_EQ(NormalizedType(""), "F");
    EXPECT_EQ(NormalizedType(" L"), "L");
    EXPECT_DOUBLE_EQ(NormalizedPrice("12.5"), 12.5);
    EXPECT_DOUBLE_EQ(NormalizedPrice("12.1234"), 12.123);
    EXPECT_DOUBLE_EQ(NormalizedPrice("$1,078.50"), 1078.5);
}

// A plain price is read directly, as the pattern reads it: the prices of a month by "###.###.##",
// the prices of the sales table by "########.##", which rounds at two decimals.
TEST(MonthlyValuesTest, PlainPricesReadAsThePatternsReadThem)
{
    QByteArrayList prices = {"0", "0.", ".5", "0.005", "12.125", "12.1234", "-12.5", "-0", "007.10", "999999999999.999", "9999999999999.99",
        "99999999999999.9", "1234567890123456", "2.675", "1.0005", "1,234.5"};
    for (int cents = 0; cents < 100000; cents += 3)
        prices.append(QByteArray::number(cents / 100) + '.' + QByteArray::number(cents % 100).rightJustified(2, '0'));
    QRandomGenerator random(5);
    for (int price = 0; price < 20000; ++price) {
        QByteArray text = QByteArray::number(random.bounded(Q_INT64_C(10000000000000000)));
        text.insert(random.bounded(int(text.size()) + 1), '.');
        prices.append(text);
    }
    int readDirectly = 0;
    for (const QByteArray &price : prices) {
        const double patterned = FormattedValue(price, "###.###.##");
        ASSERT_EQ(NormalizedPrice(price), patterned) << price.constData();
        ASSERT_EQ(std::signbit(NormalizedPrice(price)), std::signbit(patterned)) << price.constData();
        if (const std::optional<double> direct = ReadUnsignedDecimal(price, 2)) {
            ++readDirectly;
            ASSERT_EQ(*direct, FormattedValue(price, "########.##")) << price.constData();
            ASSERT_EQ(std::signbit(*direct), std::signbit(FormattedValue(price, "########.##"))) << price.constData();
        }
    }
    EXPECT_GT(readDirectly, 30000) << "most of the prices must be read directly";
    EXPECT_FALSE(ReadUnsignedDecimal("2.675", 2)) << "three decimals are rounded by the pattern";
    EXPECT_FALSE(ReadUnsignedDecimal("-2.5", 2));
}

// A scan reads each distinct text of a month once; line after line, what it reads equals what
// the text itself reads as.
TEST(MonthlyValuesTest, ReadingsOfRepeatedTextsEqualTheTextsOwnReadings)
{
    const QByteArrayList dates = {"01/05/25", "1/5/2025", "02/29/25", "13/45/25", "", "01/05/25 ", "12/31/99", "03/01/25"};
    const QByteArrayList times = {"6:05 PM", "18:05", "12:00 am", "25:00", "", "11:59:30 PM", "6:05 AM"};
    const QByteArrayList numbers = {"6.50", "12.1234", "$1,078.50", "abc", "-3", " 7", "", "2", "0.005"};
    MonthlyReadings readings;
    QRandomGenerator random(3);
    for (int line = 0; line < 3000; ++line) {
        const QByteArray &date = dates.at(random.bounded(int(dates.size())));
        const QByteArray &time = times.at(random.bounded(int(times.size())));
        const QByteArray &price = numbers.at(random.bounded(int(numbers.size())));
        const QByteArray &quantity = numbers.at(random.bounded(int(numbers.size())));
        ASSERT_TRUE(readings.date(date) == ToDate(date)) << "line " << line << ": " << date.constData();
        ASSERT_TRUE(readings.time(time) == ToTime(time)) << "line " << line << ": " << time.constData();
        ASSERT_EQ(readings.price(price), NormalizedPrice(price)) << "line " << line << ": " << price.constData();
        ASSERT_EQ(readings.quantity(quantity), NumericValue(quantity)) << "line " << line << ": " << quantity.constData();
    }
}

} // namespace
} // namespace qlon

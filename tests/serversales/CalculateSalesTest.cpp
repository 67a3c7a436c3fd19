#include "core/SiteFile.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "listbuilder/QLONlistBuilder3.h"
#include "listbuilder/logic/CSort.h"
#include "serversales/QLONlistBuilder2.h"
#include "store/ItemRec500.h"
#include "store/SiteConfig.h"
#include "store/SqliteSalesWriter.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/ScreenTest.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/VbComboBox.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::CatalogueItem;

SalesRow sale(
    int id, const QByteArray &name, const QByteArray &date, const QByteArray &time, const QByteArray &quantity, const QByteArray &price)
{
    SalesRow row;
    row[OrderID] = QByteArray::number(id);
    row[OrderDate] = date;
    row[ReceiptID] = "R" + QByteArray::number(id);
    row[Quantity] = quantity;
    row[Item] = name;
    row[UnitPrice] = price;
    row[Time] = time;
    row[SaleType] = "Dine In";
    row[OrderNumber] = QByteArray::number(id % 100);
    return row;
}

class CalculateSalesTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite()
    {
        Screens().add(QStringLiteral("QLONlistBuilder1"), [] { return new QLONlistBuilder1; });
        Screens().add(QStringLiteral("QLONlistBuilder2"), [] { return new QLONlistBuilder2; });
        Screens().add(QStringLiteral("QLONlistBuilder3"), [] { return new QLONlistBuilder3; });
    }

    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("C:\\Quillon\\", "\"01/01/2004\",\"01/02/2004\"\r\n");
        site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"Beer\"\r\n\"Retail\"\r\n\"Empty\"\r\n");
        QByteArray catalogue;
        for (const ItemRec500 &record : {CatalogueItem({"Burger", "Food", "6.50"}), CatalogueItem({"Lager", "Beer", "4.00"}),
                 CatalogueItem({"Joe's Wings", "Food", "9.95"}), CatalogueItem({"Cap", "Retail", "15.00"}),
                 CatalogueItem({"Ghost", "Food", "1.00"}), CatalogueItem({"Odd", "Mystery", "2.00"})})
            catalogue += record.bytes();
        site.write(QStringLiteral("Quillon/Temp/TempInv.dat"), catalogue);

        SqliteSalesWriter sales(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")));
        sales.add(sale(1, "Burger", "2004-01-01", "19:00:00", "3", "12.00"));
        sales.add(sale(2, "Burger", "2004-01-01", "12:00:00", "1", "13.5"));
        sales.add(sale(3, "Lager", "2004-01-02", "01:00:00", "2", "8.00"));
        sales.add(sale(4, "Joe's Wings", "2004-01-01", "20:00:00", "1", "9.95"));
        sales.add(sale(5, "Ghost", "2004-01-01", "08:00:00", "1", "1.00"));
        sales.add(sale(6, "Odd", "2004-01-01", "21:00:00", "1", "2.005"));
        sales.add(sale(7, "Burger", "2004-01-02", "23:59:30", "1", "6.50"));
        sales.commit();

        screen = Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
        screen->SSOption6->setChecked(true);
        screen->SSCommand2->click();
    }

    void calculate(const char *start = "12:00 am", const char *end = "11:59 pm")
    {
        screen->Combo2->setText(start);
        screen->Combo3->setText(end);
        screen->SSCommand4->click();
    }

    QByteArrayList rows() const
    {
        QByteArrayList rows;
        for (int row = 0; row < screen->MList1->rowCount(); ++row)
            rows.append(screen->MList1->rowText(row));
        return rows;
    }

    QLONlistBuilder1 *screen = nullptr;
};

TEST_F(CalculateSalesTest, AFinishedRunFillsTheRowsTheFilesAndTheTotals)
{
    calculate("06:00 pm", "11:59 pm");
    const QByteArrayList expected = {
        "Burger|Food|6.50|3|$12.00|0000000003|000000012.|12.",
        "Lager|Beer|4.00|2|$8.00|0000000002|000000008.|8.",
        "JoeMs Wings|Food|9.95|0||0000000000|000000000.|.",
        "Cap|Retail|15.00|0||0000000000|000000000.|.",
        "Ghost|Food|1.00|0|R5|0000000000|000000000.|.",
        "Odd|Mystery|2.00|1|$2.01|0000000001|0000002.01|2.01",
        "",
        "********************",
        "**Food|Total|4|4|$14.01|Q8$|Q9$|Q5$",
        "**Beer|Total|2|2|$8.00|Q8$|Q9$|Q5$",
        "**Retail|Total|0|0|$0.00|Q8$|Q9$|Q5$",
        "**Empty|Total|0|0|$0.00|Q8$|Q9$|Q5$",
    };
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/TempItems.dat")),
        "\"ITEMNAME\",\"UNITS SOLD\",\"SALES TOTAL\"\r\n\"Burger\",\"3\",\"12.\"\r\n\"Lager\",\"2\",\"8.\"\r\n"
        "\"JoeMs Wings\",\"0\",\".\"\r\n\"Cap\",\"0\",\".\"\r\n\"Ghost\",\"0\",\".\"\r\n\"Odd\",\"1\",\"2.01\"\r\n");
    EXPECT_EQ(site.read(QStringLiteral("Quillon/TempItemsRec.dat")),
        "\"This the DB REcord Number as the item is added to the list\",\"\",\"\"\r\n"
        "\"ITEMNAME\",\"DB REcord\",\"UnitSold\",\"OrderDate\",\"ReceiptID\",\" Order Number\",\"SaleType\"\r\n"
        "\"Burger\",\"1\",\"3\",\"1/1/2004\",\"R1\",\"1\",\"Dine In\"\r\n"
        "\"Lager\",\"3\",\"2\",\"1/2/2004\",\"R3\",\"3\",\"Dine In\"\r\n"
        "\"Odd\",\"6\",\"1\",\"1/1/2004\",\"R6\",\"6\",\"Dine In\"\r\n");
    EXPECT_TRUE(screen->SSCommand6->isVisibleTo(screen)) << "PRINT";
    EXPECT_TRUE(screen->SSCommand5->isHidden()) << "Stop";
    EXPECT_EQ(screen->MList4.rowCount(), 3 + 1 + 4);
    // An unknown type is counted in the first category with the running number of the last one.
    EXPECT_EQ(Shared().CategoryTable.at(0, 0), "Mystery");
    EXPECT_EQ(Shared().CategoryTable.at(0, 1), ".");
    EXPECT_EQ(Shared().CategoryTable.at(0, 2), "1") << "the units of the last item counted there, not the sum of the department's";
    EXPECT_EQ(Shared().CategoryTable.at(1, 2), "2");
    EXPECT_EQ(screen->Combo1->entryNumber(0), 12);
}

TEST_F(CalculateSalesTest, ARefundOverTheSpanIsKeptForRemoveItems)
{
    SqliteSalesWriter sales(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")));
    sales.add(sale(1, "Cap", "2004-01-01", "19:00:00", "-1", "-15.00"));
    sales.commit();
    calculate();
    ASSERT_EQ(screen->MList4.rowCount(), 1 + 1 + 4);
    EXPECT_TRUE(screen->MList4.rowText(0).startsWith("Cap|Retail|15.00|-1|")) << screen->MList4.rowText(0).constData();
}

TEST_F(CalculateSalesTest, ASecondRunWithoutLoadListGivesTheSameRows)
{
    calculate();
    const QByteArrayList first = rows();
    calculate();
    EXPECT_EQ(rows(), first);
    EXPECT_EQ(first.count("********************"), 1);
}

TEST_F(CalculateSalesTest, StopEndsTheRunAfterTheRowInWork)
{
    QTimer::singleShot(0, screen->SSCommand5, &QPushButton::click);
    calculate();
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("Stop"));
    EXPECT_EQ(rows().first(), "Burger|Food|6.50|4|$25.50|0000000004|00000025.5|25.5");
    EXPECT_EQ(rows().at(1), "Lager|Beer|4.00|0|0") << "rows not reached keep their zeros";
    EXPECT_FALSE(rows().contains("********************"));
    EXPECT_EQ(
        site.read(QStringLiteral("Quillon/TempItems.dat")), "\"ITEMNAME\",\"UNITS SOLD\",\"SALES TOTAL\"\r\n\"Burger\",\"4\",\"25.5\"\r\n");
}

TEST_F(CalculateSalesTest, TheSortOptionsOrderTheCalculatedList)
{
    Screens().add(QStringLiteral("QlonItemsSold"), [] { return new QWidget; });
    calculate("06:00 pm", "11:59 pm");
    screen->SSOption4[0]->click();
    EXPECT_FALSE(screen->SSOption4[3]->isEnabled()) << "the first sort disables No Sort";
    EXPECT_NE(Screens().existing(QStringLiteral("QlonItemsSold")), nullptr) << "created, not shown";
    QByteArrayList sorted = rows();
    for (int row = 0; row < 4; ++row)
        EXPECT_TRUE(sorted[row].startsWith("**")) << sorted[row].toStdString();
    EXPECT_EQ(sorted.mid(4, 3),
        (QByteArrayList{"Burger|Food|6.50|3|$12.00|0000000003|000000012.|12.", "Lager|Beer|4.00|2|$8.00|0000000002|000000008.|8.",
            "Odd|Mystery|2.00|1|$2.01|0000000001|0000002.01|2.01"}));
    EXPECT_EQ(sorted.mid(sorted.size() - 2), (QByteArrayList{"", "********************"}))
        << "the empty row and the separator sort to the bottom";

    screen->SSOption4[1]->click();
    sorted = rows();
    EXPECT_EQ(sorted.first(), "") << "an empty name ranks first";
    EXPECT_EQ(sorted.at(1), "********************");
    EXPECT_TRUE(sorted.at(2).startsWith("**Beer|"));
    EXPECT_EQ(sorted.last(), "Odd|Mystery|2.00|1|$2.01|0000000001|0000002.01|2.01");

    screen->SSOption4[2]->click();
    // By text: "0000002.01" ranks above "000000012." although 2.01 is the smaller sum.
    EXPECT_EQ(rows().mid(4, 2),
        (QByteArrayList{"Odd|Mystery|2.00|1|$2.01|0000000001|0000002.01|2.01", "Burger|Food|6.50|3|$12.00|0000000003|000000012.|12."}));
    screen->SSOption4[3]->click();
    EXPECT_TRUE(screen->SSOption4[2]->isChecked()) << "No Sort can't be chosen once disabled";
}

TEST_F(CalculateSalesTest, ExportCopiesTheRunsFileWhereTheUserSays)
{
    calculate();
    QString shown;
    QTextStream messages(&shown);
    Dialogs::useScriptedAnswers(&messages);
    const QString target = site.hostPath(QStringLiteral("chosen.csv"));
    Dialogs::queueSaveAs(target);
    screen->SSCommand7->click();
    EXPECT_EQ(site.read(QStringLiteral("chosen.csv")), site.read(QStringLiteral("Quillon/TempItems.dat")));

    const QString workingFolder = QDir::currentPath();
    QDir::setCurrent(site.driveFolder());
    screen->SSCommand7->click(); // a cancelled dialog
    QDir::setCurrent(workingFolder);
    EXPECT_EQ(site.read(QStringLiteral("ExportSales.CSV")), site.read(QStringLiteral("Quillon/TempItems.dat")));
    Dialogs::useScriptedAnswers(nullptr);

    EXPECT_THROW(FileCopy(site.hostPath(QStringLiteral("no-run-yet.dat")), target), RuntimeError);
}

TEST_F(CalculateSalesTest, RemovalRebuildsTheListAndPassesOverTheRowBehindEachRemoval)
{
    calculate("06:00 pm", "11:59 pm");
    screen->SSCommand3->click();
    EXPECT_EQ(rows(),
        (QByteArrayList{"Burger|Food|6.50|3|$12.00|0000000003|000000012.|12.", "Lager|Beer|4.00|2|$8.00|0000000002|000000008.|8.",
            "Odd|Mystery|2.00|1|$2.01|0000000001|0000002.01|2.01", "**Food|Total|4|4|$14.01|Q8$|Q9$|Q5$",
            "**Beer|Total|2|2|$8.00|Q8$|Q9$|Q5$", "**Empty|Total|0|0|$0.00|Q8$|Q9$|Q5$"}));
    EXPECT_TRUE(screen->MList1->rowTag(0).isEmpty()) << "the tags are gone";
    QList<int> selected;
    for (int row = 0; row < screen->MList1->rowCount(); ++row) {
        if (screen->MList1->isRowSelected(row))
            selected.append(row);
    }
    EXPECT_EQ(selected, QList<int>{5}) << "the last row the walk looked at";
    EXPECT_FALSE(screen->SSCommand3->isEnabled());
}

TEST_F(CalculateSalesTest, TheDumpsAndTheGridShowTheSpansRows)
{
    screen->Combo3->setText("11:59 pm");
    screen->Command4->click();
    const QByteArrayList lines = site.read(QStringLiteral("Quillon/data/TempItems.dat")).split('\n');
    ASSERT_EQ(lines.size(), 6 + 1) << "the sale after the end time on the to date is left out";
    EXPECT_EQ(lines.first(), "\"1/1/2004\",\"3\",\"Burger\",\"12\",\"Food\",\"7:00:00 PM\",\"\",\" - Dine In\"\r");
    EXPECT_EQ(Shared().TempItemsPath, "C:\\QUILLON\\\\data\\TempItems.dat");

    screen->Command2->click();
    auto *grid = Screens().existing(QStringLiteral("QLONlistBuilder3"));
    ASSERT_NE(grid, nullptr);
    grid->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
    EXPECT_EQ(grid->findChild<QTableWidget *>(QStringLiteral("MSFlexGrid1"))->rowCount(), 7);
}

TEST_F(CalculateSalesTest, ThePriceSortComparesNumbersAndTheSoldSortKeepsEqualRows)
{
    screen->Sort_ByPrice();
    QByteArrayList names;
    for (const QByteArray &row : rows())
        names.append(row.split('|').first());
    EXPECT_EQ(names, (QByteArrayList{"Cap", "JoeMs Wings", "Burger", "Lager", "Odd", "Ghost"}));
    screen->MList1->setComparer(nullptr);
    screen->Sort_BySold();
    EXPECT_EQ(rows().first(), "Cap|Retail|15.00|0|0") << "every row sold 0: the order stays";
}

TEST(CSortTest, ComparesWholeNumbersOfSixteenBitsByTheirRoundedDifference)
{
    CSort comparer;
    struct Case
    {
        const char *a;
        const char *b;
        int result;
    };
    const Case cases[] = {{"10", "3", 7}, {"3", "10", -7}, {"10.2", "10.4", 0}, {"10.2", "10.9", -1}, {"-5", "5", -10}, {"2.5", "0", 2}};
    for (const Case &test : cases)
        EXPECT_EQ(comparer.IMSort_CompareColumns(test.a, test.b), test.result) << test.a << " " << test.b;
    for (const auto &[a, b] : {std::pair{"abc", "1"}, std::pair{"40000", "1"}, std::pair{"30000", "-30000"}, std::pair{".", "1"}})
        EXPECT_THROW(comparer.IMSort_CompareColumns(a, b), RuntimeError) << a << " " << b;
}

TEST_F(CalculateSalesTest, AnEmptyListStillGetsItsTotals)
{
    screen->SSOption7->setChecked(true); // "Seclect Below": no department bears that name
    screen->SSCommand2->click();
    calculate();
    EXPECT_EQ(rows().size(), 2 + 4);
    EXPECT_EQ(rows().at(2), "**Food|Total|0|0|$0.00|Q8$|Q9$|Q5$");
}

} // namespace
} // namespace qlon

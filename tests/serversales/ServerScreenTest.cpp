#include "listbuilder/QLONlistBuilder1.h"
#include "serversales/QLONlistBuilder2.h"
#include "serversales/QLONserverLiquor.h"
#include "store/EmployeeRec1000.h"
#include "store/ProgramGlobals.h"
#include "store/SqliteSalesWriter.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/Rows.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ShownMessages.h"
#include "ui/DataControl.h"
#include "ui/MList.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArray employee(QByteArrayView number, QByteArrayView acceptsTransfers)
{
    EmployeeRec1000 record;
    record.setField(EmployeeRec1000::EmployeeNumber, number);
    record.setField(EmployeeRec1000::EmployeeName, "Someone");
    record.setField(EmployeeRec1000::AcceptsTransfers, acceptsTransfers);
    return record.bytes();
}

SalesRow sale(const char *server, const char *date, const char *time, const char *item, const char *type, const char *price)
{
    SalesRow row;
    row[EmpNumber] = server;
    row[OrderDate] = date;
    row[Time] = time;
    row[Item] = item;
    row[ItemType] = type;
    row[UnitPrice] = price;
    row[Quantity] = "1";
    return row;
}

class ServerScreenTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite()
    {
        Screens().add(QStringLiteral("QLONlistBuilder1"), [] { return new QLONlistBuilder1; });
        Screens().add(QStringLiteral("QLONlistBuilder2"), [] { return new QLONlistBuilder2; });
        Screens().add(QStringLiteral("QLONserverLiquor"), [] { return new QLONserverLiquor; });
    }

    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("C:\\Quillon\\", "\"01/01/2004\",\"01/02/2004\"\r\n");
        site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"Liquor\"\r\n\"Wine\"\r\n");
        site.write(QStringLiteral("Quillon/Data/Zemployee.dat"), employee("1002", "-1") + employee("1003", "0") + employee("2104", "-1"));
        site.write(QStringLiteral("Quillon/Temp/keep"), {});
        SqliteSalesWriter sales(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")));
        sales.add(sale("1002", "2004-01-01", "19:00:00", "Rum", "Liquor", "6"));
        sales.add(sale("1002", "2004-01-01", "17:00:00", "Early", "Food", "3"));
        sales.add(sale("2104", "2004-01-02", "01:00:00", "Merlot", "Wine", "9.5"));
        sales.add(sale("1002", "2004-01-01", "20:00:00", "Burger", "Food", "12.254"));
        sales.commit();
        main = Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
        main->Combo2->setText("6:00 PM");
        main->Combo3->setText("2:00 AM");
        main->SSCommand9->click();
        screen = qobject_cast<QLONserverLiquor *>(Screens().existing(QStringLiteral("QLONserverLiquor")));
        ASSERT_NE(screen, nullptr);
    }

    QByteArrayList rows(const MList *list) const
    {
        QByteArrayList texts;
        for (int row = 0; row < list->rowCount(); ++row)
            texts.append(list->rowText(row));
        return texts;
    }

    static QByteArray heading(const QByteArray &server)
    {
        return "~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~\r\n  Server " + server +
            "\r\n1/1/2004 to 1/2/2004\r\n6:00 PM to 2:00 AM\r\n~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~\r\n";
    }

    QLONlistBuilder1 *main = nullptr;
    QLONserverLiquor *screen = nullptr;
};

TEST_F(ServerScreenTest, OpeningCopiesTheSpanListsTheServersAndTucksTheKeypadAway)
{
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(screen->datPrimaryRS->caption(), QStringLiteral("Record: 1"));
    EXPECT_EQ(screen->Text6->text(), main->Label2->text());
    EXPECT_EQ(screen->Text8->text(), main->Label3->text());
    EXPECT_EQ(screen->Text7->text(), QStringLiteral("6:00 PM"));
    EXPECT_EQ(screen->Text9->text(), QStringLiteral("2:00 AM"));
    EXPECT_EQ(screen->Combo1->text(), "1000");
    EXPECT_EQ(screen->Text1->text(), QStringLiteral("1000"));
    ASSERT_EQ(screen->Combo1->entryCount(), 2);
    EXPECT_EQ(screen->Combo1->entryText(1), "2104");
    EXPECT_TRUE(screen->SSPanel4->isVisibleTo(screen)) << "the change handlers bring the keypad up";
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("9"));
    test::waitFor(300);
    EXPECT_FALSE(screen->SSPanel4->isVisibleTo(screen)) << "the timer puts it away once";
    EXPECT_EQ(screen->keypadTop(), 800);

    main->Label2->setText(QStringLiteral("12/31/2003"));
    main->SSCommand9->click();
    EXPECT_EQ(screen->Combo1->entryCount(), 4) << "opening again repeats every server";
    EXPECT_TRUE(screen->SSPanel4->isVisibleTo(screen)) << "and the keypad stays up: the timer has fired";
    screen->Combo1->setText("21");
    EXPECT_EQ(screen->Text1->text(), QStringLiteral("21"));
}

TEST_F(ServerScreenTest, TheKeypadTypesIntoTheBoxLastClicked)
{
    const auto press = [this](std::initializer_list<int> keys) {
        for (int key : keys)
            screen->SSCommand6[key]->click();
    };
    screen->SSCommand5->click();
    EXPECT_FALSE(screen->SSPanel4->isVisibleTo(screen));
    EXPECT_EQ(screen->keypadTop(), 12000);
    screen->Text7->click();
    EXPECT_TRUE(screen->SSPanel4->isVisibleTo(screen));
    EXPECT_EQ(screen->keypadTop(), 800);
    press({14, 7, 6, 10, 5, 0, 13}); // C 1 2 : 3 0 PM
    EXPECT_EQ(screen->Text7->text(), QStringLiteral("12:30 PM"));
    screen->Text8->click();
    screen->SSCommand7->click();
    press({14});
    EXPECT_EQ(screen->Text8->text(), QString());
    EXPECT_EQ(screen->Text7->text(), QStringLiteral("12:30 PM")) << "C clears only the box last clicked";

    emit screen->Text2->GotFocus();
    EXPECT_TRUE(screen->MonthView1->isVisibleTo(screen));
    screen->MonthView1->setSelectedDate(QDate(2004, 3, 9));
    emit screen->MonthView1->clicked(QDate(2004, 3, 9));
    EXPECT_EQ(screen->Text2->text(), QStringLiteral("3/9/2004"));
    EXPECT_FALSE(screen->MonthView1->isVisibleTo(screen));
}

TEST_F(ServerScreenTest, UpdateShowsTheServersSalesAndWritesBothLists)
{
    // Calculate Sales, run while the screen is open, keeps its sums in the program's department table.
    site.write(QStringLiteral("Quillon/Temp/TempInv.dat"),
        test::CatalogueItem({"Rum", "Liquor", "6.00"}).bytes() + test::CatalogueItem({"Merlot", "Wine", "9.50"}).bytes());
    main->SSOption6->setChecked(true);
    main->SSCommand2->click();
    main->SSCommand4->click();
    ASSERT_EQ(Shared().CategoryTable.at(1, 1), "6.");
    screen->Combo1->pick(0);
    screen->Command1->click();
    EXPECT_EQ(screen->Label2->text(), QStringLiteral("Search Completed"));
    EXPECT_EQ(
        rows(screen->MList1), (QByteArrayList{"1002,1/1/2004,Rum,6,Liquor,7:00:00 PM", "1002,1/1/2004,Burger,12.254,Food,8:00:00 PM"}));
    EXPECT_EQ(screen->Text3->text(), QStringLiteral("$18.25"));
    EXPECT_EQ(screen->Text4->text(), QStringLiteral("$6.00"));
    EXPECT_EQ(screen->Text5->text(), QStringLiteral("$12.25"));
    // Food adds the early row with the price of the last row in the span, deliberately.
    EXPECT_EQ(rows(screen->MList2), (QByteArrayList{"Liquor|$6.00|1", "Wine|$0.00|0"}));
    EXPECT_TRUE(screen->Command1->isEnabled());
    EXPECT_EQ(screen->datPrimaryRS->caption(), QStringLiteral("Record: -3"));
    const QByteArray totals = "________________________________\r\nGrand Total Sales\t$18.25\r\nTotal Liquor Sales\t$6.00\r\n"
                              "Total Food Sales\t$12.25\r\n";
    EXPECT_EQ(
        site.read(QStringLiteral("Quillon/Temp/TempList.Tmp")), heading("1002") + "Rum\t6\tLiquor\r\nBurger\t12.254\tFood\r\n" + totals);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempList2.Tmp")), heading("1002") + "Liquor\t\t$6.00\r\nWine\t\t$0.00\r\n" + totals);

    screen->Combo1->setText("  ");
    screen->Command1->click();
    EXPECT_EQ(screen->Label2->text(), QStringLiteral("Searching sales for -"));
    EXPECT_FALSE(screen->Command1->isEnabled()) << "an empty server leaves the run half done, as it always did";
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempList.Tmp")), heading("  ")) << "and the list holds its heading alone";
}

TEST_F(ServerScreenTest, WithoutTheDatabaseASearchEndsTheProgramEvenForABlankServer)
{
    screen->SSCommand1->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(Screens().existing(QStringLiteral("QLONserverLiquor")), nullptr);
    ASSERT_TRUE(QFile::remove(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb"))));
    main->SSCommand9->click();
    screen = qobject_cast<QLONserverLiquor *>(Screens().existing(QStringLiteral("QLONserverLiquor")));
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(test::ShownMessages().contains(QStringLiteral("Data error event hit err:")));

    screen->Combo1->setText("");
    EXPECT_EQ(test::RuntimeErrorNumber([this] { screen->RunServerSearch(); }), RuntimeError::ObjectClosed);
    // The list was begun before the recordset was asked anything; the department list never was.
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempList.Tmp")), heading(""));
    EXPECT_FALSE(QFile::exists(site.hostPath(QStringLiteral("Quillon/Temp/TempList2.Tmp"))));
}

} // namespace
} // namespace qlon

#include "listbuilder/QLONlistBuilder1.h"
#include "serversales/QLONlistBuilder2.h"
#include "store/SqliteSalesWriter.h"
#include "tests/support/EventLoopTurns.h"
#include "tests/support/RecordingOutput.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ShownMessages.h"
#include "ui/DataControl.h"
#include "ui/MList.h"
#include "ui/VbTextBox.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include <sqlite3.h>

#include <gtest/gtest.h>

namespace qlon {
namespace {

SalesRow sale(const char *server, const char *date, const char *item, const char *type, const char *price)
{
    SalesRow row;
    row[EmpNumber] = server;
    row[OrderDate] = date;
    row[Time] = "19:00:00";
    row[Item] = item;
    row[ItemType] = type;
    row[UnitPrice] = price;
    row[Quantity] = "2";
    return row;
}

class WorkerFormTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite()
    {
        Screens().add(QStringLiteral("QLONlistBuilder1"), [] { return new QLONlistBuilder1; });
        Screens().add(QStringLiteral("QLONlistBuilder2"), [] { return new QLONlistBuilder2; });
    }

    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("C:\\Quillon\\", "\"01/22/2005\",\"01/23/2005\"\r\n");
        site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"L\"\r\n");
        add({sale("1000", "2005-01-22", "Burger", "Food", "12.5"), sale("21000", "2005-01-22", "Rum", "L", "6"),
            sale("1000", "2005-01-23", "Burger Deluxe", "Food", "20"), sale("1001", "2005-01-22", "Burger", "Food", "3")});
        main = Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
        worker = qobject_cast<QLONlistBuilder2 *>(Screens().existing(QStringLiteral("QLONlistBuilder2")));
        ASSERT_NE(worker, nullptr);
    }

    // A station appends a row while the program runs.
    void stationSells(const char *item) const
    {
        const SqliteDatabase station = OpenSqlite(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")), SQLITE_OPEN_READWRITE);
        const QByteArray insert = QByteArrayLiteral("INSERT INTO ItemsSold (Item) VALUES ('") + item + "')";
        ASSERT_EQ(sqlite3_exec(station.get(), insert.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
    }

    void add(const std::vector<SalesRow> &rows) const
    {
        SqliteSalesWriter sales(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")));
        for (const SalesRow &row : rows)
            sales.add(row);
        sales.commit();
    }

    int gridRows() const { return worker->grdDataGrid->model()->rowCount(); }
    QString gridItem(int row) const { return worker->grdDataGrid->model()->index(row, Item).data().toString(); }

    QLONlistBuilder1 *main = nullptr;
    QLONlistBuilder2 *worker = nullptr;
};

TEST_F(WorkerFormTest, GridOperationsChangeTheRowsInMemoryOnlyAndTheWriteIsRefused)
{
    EXPECT_FALSE(worker->isVisible()) << "the worker is loaded and never shown";
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: 1"));
    stationSells("Late");
    const QByteArray database = site.read(QStringLiteral("Quillon/data/Quillon.mdb"));
    worker->show();
    ASSERT_EQ(gridRows(), 4) << "a row added after the load isn't seen";
    const int gridHeight = worker->height() - worker->datPrimaryRS->sizeHint().height() - 2 - worker->picButtons->sizeHint().height();
    EXPECT_EQ(worker->grdDataGrid->height(), gridHeight);
    // A form smaller than its bars leaves the grid as it was.
    worker->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    worker->setMinimumSize(0, 0);
    worker->resize(worker->width(), 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(worker->grdDataGrid->height(), gridHeight);

    // The grid hears of a new or a deleted row before the move's yield lets it paint.
    QList<int> rowsAtTurns;
    {
        const test::EventLoopTurns turns([&] { rowsAtTurns.append(gridRows()); });
        worker->cmdAdd->click();
        worker->cmdDelete->click();
    }
    EXPECT_EQ(rowsAtTurns, (QList<int>{4, 5, 4, 4})) << "the last row, the new row, and deleting it leaves the new last row";
    EXPECT_EQ(gridRows(), 4);
    EXPECT_EQ(gridItem(3), QStringLiteral("Burger")) << "the new row went, not the one above it";
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: 4"));
    EXPECT_EQ(worker->grdDataGrid->currentIndex().row(), 3);
    worker->cmdAdd->click();
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: 5"));
    EXPECT_EQ(worker->grdDataGrid->currentIndex().row(), 4);
    worker->cmdDelete->click();
    worker->grdDataGrid->model()->setData(worker->grdDataGrid->model()->index(0, Item), QStringLiteral("Café"));
    EXPECT_EQ(gridItem(0), QStringLiteral("Café"));

    worker->cmdUpdate->click();
    EXPECT_EQ(test::ShownMessages(), QStringLiteral("message: QLONListBuilder | Cannot update. Database or object is read-only.\n"));
    EXPECT_EQ(gridItem(0), QStringLiteral("Café")) << "the row stays as it was";
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/Quillon.mdb")), database) << "the stations' file is untouched";

    worker->cmdRefresh->click();
    EXPECT_EQ(gridRows(), 5) << "refreshing reads the table as it is now";
    EXPECT_EQ(gridItem(0), QStringLiteral("Burger"));
    worker->datPrimaryRS->moveLast();
    const test::EventLoopTurns turns;
    worker->datPrimaryRS->moveNext();
    EXPECT_EQ(turns.count(), 1) << "one yield a move";
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: -3"));
    worker->cmdDelete->click();
    EXPECT_TRUE(test::ShownMessages().contains(QStringLiteral("requires a current record")));
    EXPECT_EQ(gridRows(), 5);

    emit worker->Text2->GotFocus();
    EXPECT_TRUE(worker->MonthView1->isVisible());
    emit worker->MonthView1->clicked(QDate(2005, 1, 23));
    EXPECT_EQ(worker->Text2->text(), QStringLiteral("1/23/2005"));
    EXPECT_FALSE(worker->MonthView1->isVisible());
}

TEST_F(WorkerFormTest, DoneUnloadsTheFormAndTheNextTouchLoadsItAfresh)
{
    worker->show();
    worker->SSCommand1->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Screens().existing(QStringLiteral("QLONlistBuilder2")), nullptr);

    stationSells("Late");
    const test::EventLoopTurns turns;
    worker = Screens().touch<QLONlistBuilder2>(QStringLiteral("QLONlistBuilder2"));
    EXPECT_EQ(turns.count(), 1) << "the opening move's yield";
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: 1"));
    worker->show();
    EXPECT_EQ(gridRows(), 5) << "the load reads the table afresh";

    worker->cmdClose->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Screens().existing(QStringLiteral("QLONlistBuilder2")), nullptr);
}

TEST_F(WorkerFormTest, WithoutTheDatabaseRefreshTriesTheFileAgain)
{
    worker->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QString database = site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb"));
    ASSERT_TRUE(QFile::rename(database, database + QStringLiteral(".away")));
    worker = Screens().touch<QLONlistBuilder2>(QStringLiteral("QLONlistBuilder2"));
    EXPECT_TRUE(test::ShownMessages().startsWith(QStringLiteral("message: QLONListBuilder | Data error event hit err:")))
        << test::ShownMessages().toStdString();
    worker->show();
    EXPECT_EQ(gridRows(), 0);

    ASSERT_TRUE(QFile::rename(database + QStringLiteral(".away"), database));
    worker->cmdRefresh->click();
    EXPECT_EQ(gridRows(), 4);
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: 1"));
}

TEST_F(WorkerFormTest, UpdateListsOneDayOfTheServersContainingTheKeyAndPrintsIt)
{
    worker->Label1->setText(QStringLiteral(" 1000 "));
    worker->Text2->setText(QStringLiteral("1/22/2005"));
    worker->MList1->addRow("left from before");
    bool buttonsOnDuringRun = false;
    const test::EventLoopTurns turns([&] {
        for (const QPushButton *button : {worker->SSCommand2, worker->SSCommand3, worker->Command1})
            buttonsOnDuringRun = buttonsOnDuringRun || button->isEnabled();
    });
    worker->Command1->click();
    EXPECT_EQ(turns.count(), 1 + 2 + 2 * 3) << "its own yield, and one at each move: first, find, and next and find for each of three rows";
    EXPECT_FALSE(buttonsOnDuringRun);
    EXPECT_EQ(worker->Label2->text(), QStringLiteral("Search Completed"));
    EXPECT_EQ(worker->MList1->rowCount(), 2);
    EXPECT_EQ(worker->MList1->rowText(0), "1000,1/22/2005,Burger,12.5,Food");
    EXPECT_EQ(worker->MList1->rowText(1), "21000,1/22/2005,Rum,6,L");
    EXPECT_EQ(worker->Text3->text(), QStringLiteral("$18.50"));
    EXPECT_EQ(worker->Text4->text(), QStringLiteral("$6.00"));
    EXPECT_EQ(worker->Text5->text(), QStringLiteral("$12.50"));
    EXPECT_TRUE(worker->Command1->isEnabled());

    QList<test::Printed> printed;
    SetReportOutputFactory([&] { return std::make_unique<test::RecordingOutput>(printed, 792); });
    worker->SSCommand2->click();
    worker->SSCommand3->click();
    SetReportOutputFactory({});
    QStringList lines;
    for (const test::Printed &line : printed)
        lines.append(line.values.value(0));
    EXPECT_TRUE(lines.contains(QStringLiteral("Total Sales   $18.50"))) << lines.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(lines.count(QStringLiteral("1000,1/22/2005,Burger,12.5,Food")), 0) << "the list prints from its second row";
    EXPECT_EQ(lines.count(QStringLiteral("21000,1/22/2005,Rum,6,L")), 1);
}

TEST_F(WorkerFormTest, ItemSearchesRewriteTheMainListsRow)
{
    main->Label2->setText(QStringLiteral("1/22/2005"));
    main->Label3->setText(QStringLiteral("1/23/2005"));
    main->MList1->addRow("Burger|Food|4.50|");
    Shared().CurrentRow = 0;
    worker->Label1->setText(QStringLiteral("Burger"));
    const test::EventLoopTurns exactTurns;
    worker->Get_Sales2();
    EXPECT_EQ(exactTurns.count(), 2 + 2 + 2 * 2) << "two of its own, and one at each move";
    EXPECT_EQ(main->MList1->rowText(0), "Burger|Food|4.50|2|$15.50|0000000002|00000015.5|15.5");
    EXPECT_EQ(main->MList1->rowTag(0), "Burger");
    const test::EventLoopTurns containingTurns;
    worker->ItemSearch();
    EXPECT_EQ(containingTurns.count(), 2 + 2 + 2 * 3);
    EXPECT_EQ(main->MList1->rowText(0), "Burger|Food|4.50|3|$35.50|0000000003|00000035.5|35.5") << "Burger Deluxe too";
    EXPECT_EQ(worker->Label2->text(), QStringLiteral("Search Completed"));
    EXPECT_EQ(worker->datPrimaryRS->caption(), QStringLiteral("Record: -3"));
}

} // namespace
} // namespace qlon

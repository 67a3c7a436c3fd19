#include "core/RuntimeError.h"
#include "itemssold/QlonItemsSold.h"
#include "store/ReportTemplate.h"
#include "tests/platform/StationHold.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/RecordingOutput.h"
#include "tests/support/ScreenTest.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/Sound.h"
#include "ui/VbComboBox.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTextStream>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArray line(const char *date, const char *item, const char *price, const char *type, const char *time)
{
    return QByteArray("\"") + date + "\",1,\"" + item + "\"," + price + ",\"" + type + "\",\"" + time + "\",\"\",\"\"\r\n";
}

class ItemsSoldScreenTest : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        Site().SiteRoot = "C:\\Station\\";
        Site().DataRoot = "C:\\Quillon\\";
        site.write(QStringLiteral("Station/Items.tmp"), {});
        QByteArray buttons;
        for (const ItemRec500 &record : {test::CatalogueItem({"Burger", "Food", "6.50"}), test::CatalogueItem({"Fries", "Food", "2.50"}),
                 test::CatalogueItem({"Salad", "Catering", "1200"})})
            buttons += record.bytes();
        site.write(QStringLiteral("Quillon/ini/Button0.dat"), buttons);
        site.write(QStringLiteral("Quillon/data/ItemsSold032004.DAT"),
            line("03/01/04", "Burger", "6.5", "F", "7:00 PM") + line("03/01/04", "Burger", "6.5", "F", "8:00 PM") +
                line("03/01/04", "Fries", "2.5", "F", "8:00 PM") + line("03/01/04", "Salad", "1200", "F", "8:00 PM") +
                line("03/01/04", "Gift Card", "25", "R", "8:00 PM") + line("03/01/04", "Soup", "4", "F", "8:00 PM"));
        Dialogs::useScriptedAnswers(&messages);
        Screens().add(QStringLiteral("QlonItemsSold"), [] { return new QlonItemsSold; });
        screen = Screens().touch<QlonItemsSold>(QStringLiteral("QlonItemsSold"));
        for (QCalendarWidget *calendar : {screen->MonthView1, screen->MonthView2}) {
            calendar->setSelectedDate(QDate(2004, 3, 1));
            emit calendar->clicked(QDate(2004, 3, 1));
        }
    }

    void TearDown() override
    {
        Dialogs::useScriptedAnswers(nullptr);
        ScreenTest::TearDown();
    }

    QByteArrayList rows() const
    {
        QByteArrayList texts;
        for (int row = 0; row < screen->MList1->rowCount(); ++row)
            texts.append(screen->MList1->rowText(row));
        return texts;
    }

    QString shown;
    QTextStream messages{&shown};
    QlonItemsSold *screen = nullptr;
};

TEST_F(ItemsSoldScreenTest, UpdateListReportsEveryItemSoldWithGiftsApartFromTheTotal)
{
    EXPECT_EQ(screen->Label2->text(), QStringLiteral("03/01/04"));
    EXPECT_EQ(screen->Label4->text(), QStringLiteral("Monday"));
    EXPECT_EQ(screen->Combo1[1]->text(), "11:59 pm");
    EXPECT_EQ(screen->Combo1[0]->entryCount(), 265);
    EXPECT_EQ(screen->Combo2->text(), "All");

    screen->SSCommand4->click();
    EXPECT_EQ(screen->SSPanel1->text(), QStringLiteral("Report Complete"));
    // The list sorts as rows come, by the first column.
    EXPECT_EQ(rows(),
        (QByteArrayList{"1|Fries             |$2.50|2.50      |Food                ",
            "1|Salad             |$1,200.00|1200      |Catering            ", "1|Gift Card & Reloads|$25.00",
            "2|Burger            |$13.00|6.50      |Food                "}));
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$1,215.50"));
    EXPECT_EQ(screen->List4->count(), 1) << "Soup is on no button";
    // The gift total took the place of the class letter, so the message is empty, deliberately.
    EXPECT_TRUE(shown.contains(QStringLiteral("message: Items Not Reported | \n")));
    EXPECT_TRUE(screen->SSCommand9->isEnabled());
    EXPECT_FALSE(screen->SSCommand11->isVisibleTo(screen));
}

TEST_F(ItemsSoldScreenTest, SortsKeepThePrintListInStepAndTheFilterKeepsItsOddTotal)
{
    screen->SSCommand4->click();
    screen->SSOption4[0]->click(); // total sold, most first
    EXPECT_FALSE(screen->SSOption4[3]->isEnabled());
    ASSERT_EQ(screen->List1->count(), 3) << "the print list follows the rows shown, without the gift row";
    EXPECT_TRUE(screen->List1->item(0)->text().startsWith(QStringLiteral("2\tBurger")));

    screen->Combo2->setText("Catering");
    screen->SSCommand9->click();
    // The gift row has three fields and takes the department of the row before it, Salad's.
    EXPECT_EQ(rows(), (QByteArrayList{"1|Salad             |$1,200.00|1200      |Catering            ", "1|Gift Card & Reloads|$25.00"}));
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$26.00")) << "$1,200.00 counts up to its first comma";
    screen->Combo2->setText("All");
    screen->SSCommand9->click();
    EXPECT_EQ(rows().size(), 4);
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$41.50")) << "13 + 2.5 + 1 + the gift row's 25";
}

TEST_F(ItemsSoldScreenTest, NameOrderThenADepartmentFilterKeepsEveryRow)
{
    screen->SSCommand4->click();
    screen->SSOption4[0]->click(); // leaves the numeric comparer on the list
    screen->SSOption4[1]->click(); // names sort through it and fail
    screen->Combo2->setText("Food");
    screen->SSCommand9->click();
    EXPECT_EQ(rows().size(), 2) << "Fries and Burger, in whatever order the list could keep";
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$15.50"));
}

// Update List passes over a file it can't read, but not a month a station holds: figures
// without that month would read as a quiet day.
TEST_F(ItemsSoldScreenTest, FilesThatCantBeReadArePassedOverByUpdateListButAHeldMonthEndsIt)
{
    // A folder in place of a catalogue file and a quantity no number holds.
    QDir(site.driveFolder()).mkpath(QStringLiteral("Quillon/ini/Button1.dat"));
    site.write(QStringLiteral("Quillon/data/ItemsSold022004.DAT"),
        line("02/28/04", "Fries", "2.5", "F", "8:00 PM") + "\"02/28/04\"," + QByteArray(400, '9') +
            ",\"Fries\",2.5,\"F\",\"8:00 PM\",\"\",\"\"\r\n");
    for (QCalendarWidget *calendar : {screen->MonthView1}) {
        calendar->setSelectedDate(QDate(2004, 2, 28));
        emit calendar->clicked(QDate(2004, 2, 28));
    }
    const QString march = site.hostPath(QStringLiteral("Quillon/data/ItemsSold032004.DAT"));
    {
        const test::StationHold station(march);
        ASSERT_TRUE(station.held());
        try {
            screen->UpdateList();
            ADD_FAILURE() << "the list was made without March";
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.detail(), march);
        }
    }

    // The program would have ended, its buttons off; once the station lets go, the run is whole.
    screen->UpdateList();

    EXPECT_EQ(screen->SSPanel1->text(), QStringLiteral("Report Complete"));
    // February's second line adds its price alone: its quantity can't be converted.
    EXPECT_TRUE(rows().contains("2|Fries             |$7.50|2.50      |Food                ")) << rows().join('\n').constData();
}

class ItemsSoldPrintingTest : public ItemsSoldScreenTest
{
protected:
    void SetUp() override
    {
        ItemsSoldScreenTest::SetUp();
        SetReportOutputFactory([this] { return std::make_unique<test::RecordingOutput>(printed, 792); });
        screen->SSCommand4->click();
    }
    void TearDown() override
    {
        SetReportOutputFactory({});
        ItemsSoldScreenTest::TearDown();
    }
    QStringList printedSections() const
    {
        QStringList sections;
        for (const test::Printed &section : printed)
            sections.append(section.section + QLatin1Char(' ') + section.values.join(QLatin1Char('/')));
        return sections;
    }

    QList<test::Printed> printed;
};

TEST_F(ItemsSoldPrintingTest, TheSlipLeavesTheGiftRowOutAndTheEngineShowsTheListAsItStands)
{
    screen->SSCommand5->click();
    ASSERT_EQ(printed.size(), 3 + 3 + 5);
    EXPECT_EQ(printed.at(3).values.value(0), QStringLiteral("2\tBurger            \t$13.00")) << "the print list in scan order";
    EXPECT_EQ(printed.at(9).values.value(0), QString()) << "no gift row on the slip";
    EXPECT_TRUE(screen->SSCommand5->isEnabled());

    printed.clear();
    ASSERT_TRUE(WriteItemsSoldTemplate(site.write(QStringLiteral("Quillon/ItemsSold.vrd"), {})));
    screen->SSCommand6->click();
    EXPECT_EQ(printed.size(), 3 + 3 + 5) << "no ItemSold.vrd, so the same slip goes to the current printer";

    printed.clear();
    site.write(QStringLiteral("Quillon/ItemSold.vrd"), {});
    screen->SSCommand6->click();
    const QStringList sections = printedSections();
    ASSERT_EQ(sections.size(), 5) << sections.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(sections.at(2).contains(QStringLiteral("2/Burger            /$13.00"))) << sections.at(2).toStdString();
    EXPECT_TRUE(sections.at(1).startsWith(QStringLiteral("mid 1/Fries"))) << sections.at(1).toStdString();
    EXPECT_TRUE(sections.at(1).contains(QStringLiteral("Gift Card & Reloads"))) << "the engine prints the gift row";
    EXPECT_TRUE(sections.at(3).startsWith(QStringLiteral("Bottom"))) << sections.at(3).toStdString();
    EXPECT_TRUE(screen->SSCommand6->isEnabled());
}

TEST_F(ItemsSoldScreenTest, TheInventoryDoorAnswersFromTheBackOfficeAndChangesNothing)
{
    screen->SSCommand4->click();
    const QByteArrayList before = rows();
    for (int click = 0; click < 2; ++click)
        screen->SSCommand8->click();
    messages.flush();
    EXPECT_EQ(shown.count(QStringLiteral("message: Option Error | This option is only avaliable from the Back Office")), 2)
        << shown.toStdString();
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$1,215.50"));
}

TEST_F(ItemsSoldScreenTest, TheReportArrivesWithItsSoundWhenTheSiteHasOne)
{
    QStringList played;
    SetSoundPlayer([&](const QString &path) { played.append(path); });
    screen->SSCommand4->click();
    EXPECT_TRUE(played.isEmpty()) << "no data\\whoosh.wav: silence";
    site.write(QStringLiteral("Quillon/data/Whoosh.WAV"), "RIFF");
    screen->SSCommand4->click();
    SetSoundPlayer({});
    EXPECT_EQ(played, QStringList{site.hostPath(QStringLiteral("Quillon/data/Whoosh.WAV"))});
}

TEST_F(ItemsSoldScreenTest, TheFoodScanFillsTheListAndReportsNothingMissing)
{
    screen->ReadFoodFile();
    EXPECT_EQ(rows().size(), 4) << "Fries, Salad, Burger and the gift row";
    EXPECT_EQ(screen->Label7->text(), QStringLiteral("$1,215.50"));
    EXPECT_EQ(screen->List4->count(), 0) << "Soup is on no button, and this scan doesn't say so";
    EXPECT_EQ(screen->SSPanel1->text(), QStringLiteral("Items Sold"));
}

TEST_F(ItemsSoldScreenTest, StopIsHeardWhileTheMonthlyFilesAreRead)
{
    // The user clicks Stop once the sales scan shows its progress bar, between two lines.
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (screen->ProgressBar1->isVisibleTo(screen) && screen->SSCommand11->isVisibleTo(screen))
            screen->SSCommand11->click();
    });
    watch.start(0);
    screen->SSCommand4->click();
    watch.stop();
    EXPECT_EQ(screen->SSPanel1->text(), QStringLiteral("User Stopped"));
    EXPECT_TRUE(rows().isEmpty()) << "the rows counted so far aren't shown";
}

TEST_F(ItemsSoldScreenTest, AStopBeforeTheCatalogueIsReadLeavesAnEmptyList)
{
    Shared().StopRequested = false;
    QTimer::singleShot(0, screen->SSCommand11, &QPushButton::click);
    screen->SSCommand4->click();
    EXPECT_EQ(screen->SSPanel1->text(), QStringLiteral("User Stopped"));
    EXPECT_TRUE(rows().isEmpty());
}

} // namespace
} // namespace qlon

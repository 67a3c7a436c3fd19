#include "core/Conversions.h"
#include "core/ErrorIgnoring.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "tests/support/Rows.h"
#include "tests/support/ScreenTest.h"
#include "ui/MList.h"
#include "ui/VbComboBox.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

class MainScreenTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite() { registerMainScreenAlone(); }

    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("c:\\quillon\\", "\"06/22/2003\",\"06/24/2003\"\r\n");
    }

    QLONlistBuilder1 *load() { return Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1")); }
};

TEST_F(MainScreenTest, BlankDepartmentsTakeNoPosition)
{
    site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"\"\r\n\"  Bar \"\r\n\"   \"\r\n\"Retail\"\r\n");
    QLONlistBuilder1 *screen = load();
    ASSERT_EQ(screen->Combo1->entryCount(), 3);
    const QByteArray expected[][2] = {{"Food", "Food"}, {"Bar", "  Bar "}, {"Retail", "Retail"}};
    for (int position = 0; position < 3; ++position) {
        EXPECT_EQ(screen->Combo1->entryText(position), expected[position][0]);
        EXPECT_EQ(Shared().CategoryTable.at(position, 0), expected[position][1]) << "the table keeps the untrimmed name";
    }
    EXPECT_TRUE(Shared().CategoryTable.at(3, 0).isEmpty());
    EXPECT_EQ(screen->Combo1->text(), "More");
    EXPECT_EQ(screen->Label2->text(), QStringLiteral("6/22/2003"));
}

TEST_F(MainScreenTest, AMissingDepartmentsFileIsCreatedWithTheMainScreensList)
{
    QLONlistBuilder1 *screen = load();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/Departments.dat")),
        "\"Food\"\r\n\"Beverage\"\r\n\"Catering\"\r\n\"Speicals\"\r\n\"Retail\"\r\n\"Gift Card\"\r\n\"All\"\r\n");
    EXPECT_EQ(screen->Combo1->entryCount(), 7);
}

TEST_F(MainScreenTest, DepartmentsPastTheTableStillReachThePicker)
{
    QByteArray many;
    for (int line = 0; line < 120; ++line)
        many += "\"Dept " + QByteArray::number(line) + "\"\r\n";
    site.write(QStringLiteral("Quillon/data/Departments.dat"), many);
    QLONlistBuilder1 *screen = load();
    EXPECT_EQ(screen->Combo1->entryCount(), 120);
    EXPECT_EQ(Shared().CategoryTable.at(110, 0), "Dept 110");
    EXPECT_EQ(screen->Combo2->entryCount(), 264) << "the rest of the load still ran";
}

TEST_F(MainScreenTest, AnUnreadableStartDateLeavesTheCalendar)
{
    site.write(QStringLiteral("Quillon/data/ListbuilderINI.dat"), "\"04/31/04\",\"06/24/2003\"\r\n");
    QLONlistBuilder1 *screen = load();
    EXPECT_EQ(screen->Label3->text(), QStringLiteral("6/24/2003"));
    EXPECT_EQ(screen->Label2->text(), screen->MonthView1->selectedDate().toString(QStringLiteral("M/d/yyyy")));
}

TEST_F(MainScreenTest, CalendarsAreTheSitesWhateverThisMachinesLocale)
{
    const QLocale machine;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QLONlistBuilder1 *screen = load();
    QLocale::setDefault(machine);
    for (const QCalendarWidget *calendar : {screen->MonthView1, screen->MonthView2}) {
        EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Sunday);
        EXPECT_EQ(calendar->locale().monthName(11), QStringLiteral("November"));
        EXPECT_EQ(calendar->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader) << "no week numbers";
    }
}

TEST_F(MainScreenTest, CommandsStayUnderThePointerWhenARunShowsStopAndPrint)
{
    QLONlistBuilder1 *screen = load();
    screen->show();
    QApplication::processEvents();
    const auto places = [screen] {
        QList<QRect> rects;
        for (const QWidget *command : screen->findChildren<QPushButton *>())
            rects.append(command->isVisible() ? command->geometry() : QRect());
        return rects;
    };
    const QList<QRect> before = places();
    screen->SSCommand5->show();
    screen->SSCommand6->show();
    QApplication::processEvents();
    const QList<QRect> during = places();
    for (qsizetype index = 0; index < before.size(); ++index) {
        if (!before[index].isNull()) {
            EXPECT_EQ(during[index], before[index]) << index;
        }
    }
}

TEST_F(MainScreenTest, ALongDepartmentNameDoesNotWidenTheScreen)
{
    site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"" + QByteArray(100000, 'W') + "\"\r\n");
    QLONlistBuilder1 *screen = load();
    const int width = screen->sizeHint().width();
    screen->Combo1->setText(QByteArray(100000, 'W'));
    screen->show();
    QApplication::processEvents();
    EXPECT_EQ(screen->sizeHint().width(), width) << "picking the name changes no width";
}

// The old Remove Items, row by row on the list control: each row it looks at is selected, each
// row that sold nothing removed, and the walk never steps back.
void walkOverTheList(MList &list)
{
    const int last = list.rowCount() - 1;
    QByteArray text;
    std::array<qsizetype, 4> bars = {0, 0, 0, 0};
    QByteArray sold;
    for (int row = 0; row <= last; ++row) {
        SkipOnFailure([&] { list.setRowSelected(row, true); });
        SkipOnFailure([&] { text = list.rowText(row); });
        qsizetype from = 0;
        for (qsizetype &bar : bars) {
            const qsizetype found = text.indexOf('|', from);
            if (found < 0)
                break;
            bar = found;
            from = found + 1;
        }
        if (bars[3] > bars[2])
            sold = text.mid(bars[2] + 1, bars[3] - bars[2] - 1);
        if (NumericValue(sold) == 0)
            SkipOnFailure([&] { list.removeRow(row); });
    }
}

// Remove Items works on plain rows and fills the list at once; the list it leaves, and its
// selected row, are those of the walk over the list control itself.
TEST_F(MainScreenTest, RemovingUnsoldRowsLeavesWhatTheWalkOverTheListLeaves)
{
    QLONlistBuilder1 *screen = load();
    QRandomGenerator random(7);
    for (int round = 0; round < 200; ++round) {
        MList reference;
        screen->MList4.clear();
        const int count = int(random.bounded(30));
        for (int row = 0; row < count; ++row) {
            const QByteArray text =
                random.bounded(5) == 0 ? QByteArray("**********") : "Item|F|1.00|" + QByteArray::number(random.bounded(3)) + "|x";
            screen->MList4.addRow(text);
            reference.addRow(text);
        }
        walkOverTheList(reference);

        screen->SSCommand3->setEnabled(true);
        screen->SSCommand3->click();

        ASSERT_EQ(test::TextsOf(screen->MList1->rows()), test::TextsOf(reference.rows())) << "round " << round;
        for (int row = 0; row < reference.rowCount(); ++row)
            ASSERT_EQ(screen->MList1->isRowSelected(row), reference.isRowSelected(row)) << "round " << round << " row " << row;
    }
}

} // namespace
} // namespace qlon

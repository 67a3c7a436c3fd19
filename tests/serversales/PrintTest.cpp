#include "listbuilder/QLONlistBuilder1.h"
#include "store/ReportTemplate.h"
#include "store/SiteConfig.h"
#include "tests/support/RecordingOutput.h"
#include "tests/support/ScreenTest.h"
#include "ui/MList.h"
#include "ui/Report.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::Printed;
using test::RecordingOutput;

class PrintTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite() { registerMainScreenAlone(); }

    void SetUp() override
    {
        ScreenTest::SetUp();
        Site().DataRoot = "C:\\Quillon\\";
        ASSERT_TRUE(WriteItemsSoldTemplate(site.write(QStringLiteral("Quillon/ItemsSold.vrd"), {})));
        SetReportOutputFactory([this] { return std::make_unique<RecordingOutput>(printed, pageHeight); });
        screen = Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
        screen->Label2->setText(QStringLiteral("1/1/2004"));
        screen->Label3->setText(QStringLiteral("1/2/2004"));
    }

    void TearDown() override
    {
        SetReportOutputFactory({});
        ScreenTest::TearDown();
    }

    void print(const QByteArrayList &rows)
    {
        screen->MList1->clear();
        for (const QByteArray &row : rows)
            screen->MList1->addRow(row);
        screen->Print_ItemsSold();
    }

    QStringList sections() const
    {
        QStringList names;
        for (const Printed &section : printed)
            names.append(section.section);
        return names;
    }

    QLONlistBuilder1 *screen = nullptr;
    QList<Printed> printed;
    double pageHeight = 792;
};

TEST_F(PrintTest, OneItemFillsTheFirstGroupAndTheTotal)
{
    print({"Burger|Food|6.50|12|$78.00|0000000012|000000078.|78."});
    EXPECT_EQ(sections(), (QStringList{QStringLiteral("top"), QStringLiteral("mid"), QStringLiteral("Bottom"), QStringLiteral("Footer")}));
    EXPECT_EQ(printed[0].cells.value(QStringLiteral("T1")), QStringLiteral("1/1/2004"));
    EXPECT_EQ(printed[0].cells.value(QStringLiteral("T3")), QString()) << "the site name isn't read on this road";
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T11")), QStringLiteral("12"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T12")), QStringLiteral("Burger"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T13")), QStringLiteral("$78.00"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T21")), QString());
    EXPECT_EQ(printed[2].cells.value(QStringLiteral("TS")), QStringLiteral("$78.00"));
    EXPECT_EQ(printed[3].cells.value(QStringLiteral("T13")), QStringLiteral("1"));
}

TEST_F(PrintTest, ThreeItemsMakeOneFullLineAndAnEmptyOne)
{
    print({"A|Food|1|1|$1,000.50|x|x|x", "B|Food|1|2||x|x|x", "C|Food|1|3|$2.25|x|x|x"});
    EXPECT_EQ(sections().count(QStringLiteral("mid")), 2);
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T33")), QStringLiteral("$2.25"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T23")), QString()) << "an empty Volume prints empty and adds 0";
    EXPECT_TRUE(printed[2].cells.values().join(QString()).isEmpty());
    EXPECT_EQ(printed[3].cells.value(QStringLiteral("TS")), QStringLiteral("$1,002.75"));
}

TEST_F(PrintTest, TotalRowsPrintButDontCountAndRowsWithoutFieldsLeaveGaps)
{
    print({"**Food|Total|3|3|$9.00|Q8$|Q9$|Q5$", "Pie|Food|4|3|$9.00|x|x|x", "", "********************"});
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T12")), QStringLiteral("**Food"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T22")), QStringLiteral("Pie"));
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("T32")), QString()) << "the empty row is a gap";
    EXPECT_EQ(printed[2].cells.value(QStringLiteral("T11")), QString()) << "so is the separator";
    EXPECT_EQ(printed.last().section, QStringLiteral("Footer"));
    EXPECT_EQ(printed.at(printed.size() - 2).cells.value(QStringLiteral("TS")), QStringLiteral("$9.00"));
}

TEST_F(PrintTest, LaterPagesGetTheTopThroughTheEventAndEveryPageItsNumber)
{
    pageHeight = 74 + 16 * 5 + 24 + 10;
    QByteArrayList rows;
    for (int item = 0; item < 30; ++item)
        rows.append("Item " + QByteArray::number(item) + "|Food|1|1|$1.00|x|x|x");
    print(rows);
    QStringList footers;
    int tops = 0;
    for (const Printed &section : printed) {
        if (section.section == QLatin1String("Footer"))
            footers.append(section.cells.value(QStringLiteral("T13")) + QLatin1Char('@') + QString::number(section.page));
        tops += section.section == QLatin1String("top");
    }
    EXPECT_EQ(footers, (QStringList{QStringLiteral("1@1"), QStringLiteral("2@2"), QStringLiteral("3@3")}));
    EXPECT_EQ(tops, 3);
    EXPECT_EQ(printed.at(printed.size() - 2).cells.value(QStringLiteral("TS")), QStringLiteral("$30.00"));
}

TEST_F(PrintTest, AMissingTemplatePrintsNoPage)
{
    QFile::remove(site.hostPath(QStringLiteral("Quillon/ItemsSold.vrd")));
    print({"Burger|Food|6.50|12|$78.00|x|x|x"});
    EXPECT_TRUE(printed.isEmpty());
}

} // namespace
} // namespace qlon

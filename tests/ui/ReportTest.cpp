#include "ui/Report.h"

#include "tests/support/RecordingOutput.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::Printed;
using test::RecordingOutput;

class ReportTest : public ::testing::Test
{
protected:
    bool load(const QByteArray &templateText) { return report.LoadTemplate(site.write(QStringLiteral("Report.vrd"), templateText)); }

    QString sections() const
    {
        QStringList names;
        for (const Printed &section : printed)
            names.append(QString::number(section.page) + section.section);
        return names.join(QLatin1Char(' '));
    }

    test::TempSite site;
    QList<Printed> printed;
    Report report{std::make_unique<RecordingOutput>(printed, 100)};
};

TEST_F(ReportTest, ASectionTallerThanAPagePrintsOnceOnAFreshPage)
{
    ASSERT_TRUE(load("section top 150\nsection mid 40\n"));
    report.onNewPage = [this] { report.PrintSection(QStringLiteral("top")); };

    report.PrintSection(QStringLiteral("top"));
    for (int line = 0; line < 3; ++line)
        report.PrintSection(QStringLiteral("mid"));
    report.EndReport();

    EXPECT_EQ(sections(), QStringLiteral("1top 2top 2mid 3top 3mid 4top 4mid"))
        << "each page opens with the tall top and takes the line that turned it";
}

TEST_F(ReportTest, ARecordedReportPrintsTheSamePagesAgain)
{
    auto *recording = new ReportRecording(100);
    Report recorded{std::unique_ptr<ReportOutput>(recording)};
    ASSERT_TRUE(recorded.LoadTemplate(site.write(QStringLiteral("Report.vrd"), "section top 60\ncell Title 0 0 100 10 10 bold left\n")));
    recorded.section(QStringLiteral("top"))->cell(QStringLiteral("Title"))->value = QStringLiteral("first");
    recorded.PrintSection(QStringLiteral("top"));
    recorded.section(QStringLiteral("top"))->cell(QStringLiteral("Title"))->value = QStringLiteral("second");
    recorded.PrintSection(QStringLiteral("top"));
    recorded.EndReport();

    RecordingOutput again(printed, 100);
    recording->replay(again);
    ASSERT_EQ(sections(), QStringLiteral("1top 2top"));
    EXPECT_EQ(printed[0].cells.value(QStringLiteral("Title")), QStringLiteral("first")) << "each section as it was when it printed";
    EXPECT_EQ(printed[1].cells.value(QStringLiteral("Title")), QStringLiteral("second"));
}

TEST_F(ReportTest, SizesThatCantBeMeasuredMakeNoTemplate)
{
    for (const char *bad : {"section top nan\n", "section top -5\n", "section top inf\n", "section top x\n"})
        EXPECT_FALSE(load(bad)) << bad;
    ASSERT_TRUE(load("section top 10\ncell T1 0 0 -50 10 9 normal left\ncell T2 0 0 50 10 9 normal left\n"));
    ASSERT_NE(report.section(QStringLiteral("top")), nullptr);
    EXPECT_EQ(report.section(QStringLiteral("top"))->cells.size(), 1) << "a cell of negative width is passed over";
}

} // namespace
} // namespace qlon

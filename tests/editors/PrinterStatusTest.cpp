#include "editors/PrinterStatus.h"
#include "platform/spooler/PrintSpooler.h"
#include "store/IniRec2300.h"
#include "tests/support/ScreenTest.h"
#include "ui/ScreenTimer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qlon {
namespace {

class FakeSpooler : public PrintSpooler
{
public:
    QList<SystemPrinter> printers() override
    {
        return {{QStringLiteral("Epson TM-T88"), QStringLiteral("usb://Epson/TM-T88")},
            {QStringLiteral("Kitchen Star"), QStringLiteral("socket://10.0.0.31:9100")},
            {QStringLiteral("Bar HP LaserJet"), QStringLiteral("ipp://10.0.0.40/ipp")}};
    }
    QList<PrintJob> jobs(const QString &deviceName, int limit) override
    {
        asked.append(deviceName);
        return QList<PrintJob>(std::min(deviceName.startsWith(QLatin1String("Bar")) ? 500 : 3, limit));
    }
    QStringList asked;
};

class DetailsScreen : public QWidget, public PrinterCompanion
{
public:
    void setPrinter(const QString &deviceName) override { printer = deviceName; }
    void Command1_Click() override { ++clicks; }
    QString printer;
    int clicks = 0;
};

class PrinterStatusTest : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        SetSpooler(&spooler);
        IniRec2300 configuration;
        configuration.setField(IniRec2300::ReportPrinter, "Epson");
        configuration.setField(IniRec2300::StatusPrinter28, "Kitchen Star");
        configuration.setField(IniRec2300::StatusPrinter72, "None");
        configuration.setField(IniRec2300::StatusPrinter34, "Bar HP LaserJet");
        site.write(QStringLiteral("Quillon/QlonINI.dat"), configuration.bytes());
        Screens().add(QStringLiteral("PrinterStatus"), [] { return new PrinterStatus; });
        Screens().add(PrinterDetailsCompanion, [] { return new DetailsScreen; });
        Screens().add(PrinterQueueCompanion, [] { return new DetailsScreen; });
        screen = Screens().touch<PrinterStatus>(QStringLiteral("PrinterStatus"));
    }

    void TearDown() override
    {
        SetSpooler(nullptr);
        ScreenTest::TearDown();
    }

    FakeSpooler spooler;
    PrinterStatus *screen = nullptr;
};

TEST_F(PrinterStatusTest, PanelsShowTheConfiguredPrintersTheirPortsAndTheirQueues)
{
    EXPECT_EQ(screen->lblPrinter[0]->text(), QStringLiteral("Epson TM-T88")) << "a short name finds its device";
    EXPECT_EQ(screen->lblPort[0]->text(), QStringLiteral("Unknown")) << "the port is looked up by the name as configured";
    EXPECT_EQ(screen->lblPort[1]->text(), QStringLiteral("socket://10.0.0.31:9100"));
    EXPECT_EQ(screen->lblPrinter[2]->text(), QStringLiteral("None"));
    EXPECT_EQ(screen->lblPort[2]->text(), QStringLiteral("Unknown"));
    EXPECT_FALSE(screen->cmdDetails[2]->isEnabled());
    EXPECT_FALSE(screen->cmdSpool[2]->isEnabled());
    EXPECT_TRUE(screen->lblPending[0]->text().isEmpty()) << "before the first cycle";

    AdvanceClock(100);
    EXPECT_EQ(screen->lblPending[0]->text(), QStringLiteral("3"));
    EXPECT_EQ(screen->lblPending[3]->text(), QStringLiteral("127")) << "a queue request returns 127 jobs at most";
    EXPECT_TRUE(screen->lblPending[2]->text().isEmpty());
    EXPECT_FALSE(spooler.asked.contains(QStringLiteral("None")));
    EXPECT_FALSE(screen->SSPanel1->isVisibleTo(screen)) << "\"Updating Status\" goes after the first cycle";

    // Three printers in use, asked once a cycle: the first cycle, then one every ten seconds.
    EXPECT_EQ(spooler.asked.size(), 3);
    AdvanceClock(9999);
    EXPECT_EQ(spooler.asked.size(), 3);
    AdvanceClock(15000);
    EXPECT_EQ(spooler.asked.size(), 9);
}

TEST_F(PrinterStatusTest, ButtonsCallTheirCompanionsAndSpoolStopsTheCycles)
{
    screen->cmdDetails[1]->click();
    const auto *details = dynamic_cast<DetailsScreen *>(Screens().existing(PrinterDetailsCompanion));
    ASSERT_NE(details, nullptr);
    EXPECT_EQ(details->printer, QStringLiteral("Kitchen Star"));
    EXPECT_EQ(details->clicks, 1);
    EXPECT_FALSE(screen->cmdAllPrinters->isEnabled()) << "no list screen supplied";
    EXPECT_TRUE(screen->cmdBios->toolTip().contains(QStringLiteral("back office")));

    screen->cmdSpool[0]->click();
    AdvanceClock(60000);
    EXPECT_TRUE(spooler.asked.isEmpty()) << "no cycle runs after Spool";
    EXPECT_FALSE(screen->Text1->isVisibleTo(screen));
    screen->cmdPendingCaption->click();
    EXPECT_TRUE(screen->Text1->isVisibleTo(screen));
}

} // namespace
} // namespace qlon

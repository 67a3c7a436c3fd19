#include "editors/PrinterStatus.h"

#include "core/Ansi.h"
#include "core/ErrorIgnoring.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "core/RuntimeError.h"
#include "core/Yield.h"
#include "platform/ProgramStart.h"
#include "platform/spooler/PrintSpooler.h"
#include "store/IniRec2300.h"
#include "store/ProgramGlobals.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"
#include "ui/ScreenKeys.h"
#include "ui/ScreenTimer.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace qlon {

namespace {

constexpr int firstCycle = 100;
constexpr int laterCycles = 10000;
const QString unknown = QStringLiteral("Unknown");
const QString none = QStringLiteral("None");

struct PanelSetting
{
    const char *heading;
    int field;
};

constexpr std::array<PanelSetting, PrinterStatus::panelCount> panels = {{
    {"Receipt Printer", IniRec2300::ReportPrinter},
    {"Kitchen Printer", IniRec2300::StatusPrinter28},
    {"Kitchen 2 Printer", IniRec2300::StatusPrinter72},
    {"Bar Printer", IniRec2300::StatusPrinter34},
}};

// Record 1 of the configuration at its fixed place; a file that isn't there reads as blanks and
// isn't created.
IniRec2300 readConfiguration()
{
    const QString path = HostPath("C:\\Quillon\\QlonINI.dat");
    if (!FileExists(path))
        return IniRec2300();
    const IniRec2300 configuration(RecordFile(path, IniRec2300::size).GetRecord(1));
    Shared().SiteName = configuration.trimmedField(IniRec2300::SiteName);
    return configuration;
}

} // namespace

PrinterStatus::PrinterStatus(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Printer Status"));
    auto *layout = new QGridLayout(this);
    for (int panel = 0; panel < panelCount; ++panel)
        layout->addWidget(makePanel(panel, QString::fromLatin1(panels[panel].heading)), panel / 2, panel % 2);
    cmdDone = MakeButton(this, QStringLiteral("cmdDone"), QStringLiteral("Done"));
    cmdAllPrinters = MakeButton(this, QStringLiteral("cmdAllPrinters"), QStringLiteral("All Printers"));
    cmdIPConn = MakeButton(this, QStringLiteral("cmdIPConn"), QStringLiteral("IP Conn"));
    cmdBios = MakeButton(this, QStringLiteral("cmdBios"), QStringLiteral("BIOS"));
    cmdWinPrinters = MakeButton(this, QStringLiteral("cmdWinPrinters"), QStringLiteral("Win Printers"));
    cmdTestPrinter = MakeButton(this, QStringLiteral("cmdTestPrinter"), QStringLiteral("Test Printer"));
    SSPanel1 = MakeLabel(this, QStringLiteral("SSPanel1"), QStringLiteral("Updating Status"));
    SSPanel1->setFrameShape(QFrame::Panel);
    List1 = Named(new QListWidget(this), QStringLiteral("List1"));
    List1->hide();
    lblStatus = MakeLabel(this, QStringLiteral("lblStatus"));
    Text1 = MakeTextBox(this, QStringLiteral("Text1"), QStringLiteral("rundll32 shell32.dll,Control_RunDLL Main.CPL,Printers"));
    Text2 = MakeTextBox(this, QStringLiteral("Text2"));
    Text1->hide();
    Text2->hide();
    auto *commands = new QHBoxLayout;
    for (QPushButton *command : {cmdDone, cmdAllPrinters, cmdIPConn, cmdBios, cmdWinPrinters, cmdTestPrinter})
        commands->addWidget(command);
    layout->addLayout(commands, 2, 0, 1, 2);
    layout->addWidget(SSPanel1, 3, 0);
    layout->addWidget(lblStatus, 3, 1);
    layout->addWidget(Text1, 4, 0);
    layout->addWidget(Text2, 4, 1);
    m_timer = new ScreenTimer(this);
    m_timer->setSingleShot(true);
    connectHandlers();
}

QGroupBox *PrinterStatus::makePanel(int panel, const QString &heading)
{
    Frame1[panel] = Named(new QGroupBox(heading, this), ArrayName("Frame1", panel));
    QGroupBox *frame = Frame1[panel];
    lblPrinter[panel] = MakeLabel(frame, ArrayName("lblPrinter", panel), unknown);
    lblPort[panel] = MakeLabel(frame, ArrayName("lblPort", panel), unknown);
    lblPending[panel] = MakeLabel(frame, ArrayName("lblPending", panel));
    cmdDetails[panel] = MakeButton(frame, ArrayName("cmdDetails", panel), QStringLiteral("Details"));
    cmdSpool[panel] = MakeButton(frame, ArrayName("cmdSpool", panel), QStringLiteral("Spool"));
    auto *grid = new QGridLayout(frame);
    grid->addWidget(MakeLabel(frame, {}, QStringLiteral("Printer")), 0, 0);
    grid->addWidget(lblPrinter[panel], 0, 1);
    grid->addWidget(MakeLabel(frame, {}, QStringLiteral("Port")), 1, 0);
    grid->addWidget(lblPort[panel], 1, 1);
    QWidget *pendingCaption = MakeLabel(frame, {}, QStringLiteral("Pending Documents"));
    if (panel == 0) {
        // The first panel's caption answers a click, to show the hidden fields.
        delete pendingCaption;
        cmdPendingCaption = MakeButton(frame, QStringLiteral("cmdPendingCaption"), QStringLiteral("Pending Documents"));
        cmdPendingCaption->setFlat(true);
        pendingCaption = cmdPendingCaption;
    }
    grid->addWidget(pendingCaption, 2, 0);
    grid->addWidget(lblPending[panel], 2, 1);
    grid->addWidget(cmdDetails[panel], 3, 0);
    grid->addWidget(cmdSpool[panel], 3, 1);
    return frame;
}

void PrinterStatus::connectHandlers()
{
    OnEvent(m_timer, &ScreenTimer::timeout, this, [this] { Timer1_Timer(); });
    OnEvent(cmdDone, &QPushButton::clicked, this, [this] { DoneWithScreen(this); });
    MarkAsProgramsEnd(cmdDone);
    OnEvent(cmdAllPrinters, &QPushButton::clicked, this, [this] {
        if (PrinterCompanion *list = showCompanion(PrinterListCompanion))
            list->Command1_Click();
    });
    OnEvent(cmdIPConn, &QPushButton::clicked, this, [this] {
        if (PrinterCompanion *connection = showCompanion(ConnectionCompanion)) {
            Yield();
            connection->Command1_Click();
        }
    });
    OnEvent(cmdBios, &QPushButton::clicked, this, [this] { showCompanion(BiosCompanion); });
    OnEvent(cmdTestPrinter, &QPushButton::clicked, this, [this] { showCompanion(TestPrinterCompanion); });
    OnEvent(cmdWinPrinters, &QPushButton::clicked, this, [this] { StartCPLApp(Text1->text()); });
    OnEvent(cmdPendingCaption, &QPushButton::clicked, this, [this] {
        Text1->show();
        Text2->show();
    });
    for (int panel = 0; panel < panelCount; ++panel) {
        OnEvent(cmdDetails[panel], &QPushButton::clicked, this, [this, panel] {
            if (PrinterCompanion *details = showCompanion(PrinterDetailsCompanion)) {
                details->setPrinter(printerName(panel));
                details->Command1_Click();
            }
        });
        OnEvent(cmdSpool[panel], &QPushButton::clicked, this, [this, panel] { Spool_Click(panel); });
    }
}

void PrinterStatus::Form_Load()
{
    const IniRec2300 configuration = readConfiguration();
    for (int panel = 0; panel < panelCount; ++panel)
        lblPrinter[panel]->setText(FromAnsi(configuration.trimmedField(panels[panel].field)));
    const QList<SystemPrinter> printers = Spooler().printers();
    for (const SystemPrinter &printer : printers) {
        for (int panel = 0; panel < panelCount; ++panel) {
            if (printer.deviceName == printerName(panel))
                lblPort[panel]->setText(printer.port);
        }
    }
    for (int panel = 0; panel < panelCount; ++panel) {
        cmdDetails[panel]->setEnabled(inUse(panel));
        cmdSpool[panel]->setEnabled(inUse(panel));
        RequireCompanion(cmdDetails[panel], PrinterDetailsCompanion);
        RequireCompanion(cmdSpool[panel], PrinterQueueCompanion);
    }
    RequireCompanion(cmdAllPrinters, PrinterListCompanion);
    RequireCompanion(cmdIPConn, ConnectionCompanion);
    RequireCompanion(cmdBios, BiosCompanion);
    RequireCompanion(cmdTestPrinter, TestPrinterCompanion);
    // A short name in the configuration finds its full device name; the port was looked up
    // before, by the name as configured.
    for (const SystemPrinter &printer : printers)
        List1->addItem(printer.deviceName);
    for (int panel = 0; panel < panelCount; ++panel) {
        const QString name = printerName(panel);
        for (int entry = 0; entry < List1->count(); ++entry) {
            if (List1->item(entry)->text().startsWith(name)) {
                lblPrinter[panel]->setText(List1->item(entry)->text());
                break;
            }
        }
    }
    // The first cycle is one a script waits for; the later ones every ten seconds are not.
    StartOneShot(this, firstCycle, [this] {
        if (!m_stopped)
            Timer1_Timer();
    });
}

QString PrinterStatus::printerName(int panel) const
{
    return lblPrinter[panel]->text();
}

bool PrinterStatus::inUse(int panel) const
{
    return printerName(panel).trimmed() != none;
}

void PrinterStatus::Timer1_Timer()
{
    m_timer->stop();
    Yield();
    if (PrinterCompanion *queue = companion(PrinterQueueCompanion)) {
        for (int panel = 0; panel < panelCount; ++panel) {
            Shared().PendingCount = 0;
            if (!inUse(panel))
                continue;
            SkipOnFailure([&] {
                queue->setPrinter(printerName(panel).trimmed());
                Yield();
                queue->Command1_Click();
                lblPending[panel]->setText(QString::number(Shared().PendingCount));
            });
        }
    }
    for (int panel = 0; panel < panelCount; ++panel) {
        lblStatus->setText(printerName(panel));
        if (inUse(panel))
            lblPending[panel]->setText(QString::number(GetPrinterQueue(printerName(panel))));
    }
    if (m_stopped)
        return;
    m_timer->start(laterCycles);
    SSPanel1->hide();
}

int PrinterStatus::GetPrinterQueue(const QString &deviceName)
{
    lblStatus->setText(deviceName);
    return Spooler().pendingJobs(deviceName, jobLimit);
}

PrinterCompanion *PrinterStatus::companion(const QString &name)
{
    return dynamic_cast<PrinterCompanion *>(Screens().touch(name));
}

PrinterCompanion *PrinterStatus::showCompanion(const QString &name)
{
    if (QWidget *screen = Screens().touch(name))
        screen->show();
    return companion(name);
}

// The timer stays stopped: no cycle runs until the screen is opened anew.
void PrinterStatus::Spool_Click(int panel)
{
    m_stopped = true;
    m_timer->stop();
    if (!inUse(panel))
        return;
    if (PrinterCompanion *queue = showCompanion(PrinterQueueCompanion)) {
        queue->setPrinter(printerName(panel));
        Yield();
        queue->Command1_Click();
    }
}

// Opens the system's printer settings; where nothing here can show them, says what to run. The
// Windows command's own failure keeps its error text.
void PrinterStatus::StartCPLApp(const QString &item)
{
    if (StartPrinterSettings(item) == ProgramStart::Started)
        return;
#ifdef Q_OS_WIN
    const RuntimeError error(RuntimeError::FileNotFound);
    Dialogs::showMessage(this, QStringLiteral(" Error ") + QString::number(error.number()),
        error.description() + QStringLiteral(" While executing ") + item);
#else
    Dialogs::showNote(this, cmdWinPrinters->text(),
        QStringLiteral("No printer settings program or browser could be started here. Install system-config-printer, "
                       "or open http://localhost:631/printers/ in a browser."));
#endif
}

} // namespace qlon

#include "editors/PrinterQueueView.h"

#include "platform/spooler/PrintSpooler.h"
#include "store/ProgramGlobals.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>

namespace qlon {

namespace {

QString portOf(const QString &deviceName)
{
    for (const SystemPrinter &printer : Spooler().printers()) {
        if (printer.deviceName == deviceName)
            return printer.port;
    }
    return QStringLiteral("Unknown");
}

QTreeWidgetItem *jobLine(const PrintJob &job)
{
    return new QTreeWidgetItem({QString::number(job.id), job.title, job.user, QStringLiteral("%1 KB").arg(job.kilobytes),
        QLocale(QLocale::English, QLocale::UnitedStates).toString(job.created, QStringLiteral("M/d/yyyy h:mm AP"))});
}

} // namespace

PrinterQueueView::PrinterQueueView(const QString &title, QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(title);
    cmbPrinters = Named(new QComboBox(this), QStringLiteral("cmbPrinters"));
    cmbPrinters->setEditable(true);
    for (const SystemPrinter &printer : Spooler().printers())
        cmbPrinters->addItem(printer.deviceName);
    Label1 = MakeLabel(this, QStringLiteral("Label1"));
    lstJobs = Named(new QTreeWidget(this), QStringLiteral("lstJobs"));
    lstJobs->setHeaderLabels(
        {QStringLiteral("Job"), QStringLiteral("Document"), QStringLiteral("Owner"), QStringLiteral("Size"), QStringLiteral("Submitted")});
    lstJobs->setRootIsDecorated(false);
    lstJobs->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("&Refresh"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Printer")), 0, 0);
    layout->addWidget(cmbPrinters, 0, 1, 1, 2);
    layout->addWidget(Label1, 1, 0, 1, 3);
    layout->addWidget(lstJobs, 2, 0, 1, 3);
    layout->addWidget(Command1, 3, 1);
    layout->addWidget(cmdClose, 3, 2);
    layout->setColumnStretch(0, 1);
    resize(560, 360);
    OnEvent(cmbPrinters, &QComboBox::activated, this, [this] { Command1_Click(); });
    OnEvent(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void PrinterQueueView::setPrinter(const QString &deviceName)
{
    cmbPrinters->setCurrentText(deviceName);
    Label1->setText(deviceName);
}

void PrinterQueueView::Command1_Click()
{
    const QString printer = cmbPrinters->currentText().trimmed();
    const QList<PrintJob> jobs = Spooler().jobs(printer, PrinterStatus::jobLimit);
    Label1->setText(QStringLiteral("%1 on %2: %3 waiting").arg(printer, portOf(printer)).arg(jobs.size()));
    lstJobs->clear();
    for (const PrintJob &job : jobs)
        lstJobs->addTopLevelItem(jobLine(job));
    Shared().PendingCount = int(jobs.size());
}

} // namespace qlon

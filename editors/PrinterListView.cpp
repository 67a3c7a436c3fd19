#include "editors/PrinterListView.h"

#include "platform/spooler/PrintSpooler.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace qlon {

PrinterListView::PrinterListView(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("All Printers"));
    grdPrinters = Named(new QTableWidget(0, 3, this), QStringLiteral("grdPrinters"));
    grdPrinters->setHorizontalHeaderLabels({QStringLiteral("Printer"), QStringLiteral("Port"), QStringLiteral("Pending Documents")});
    grdPrinters->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grdPrinters->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    lblService = MakeLabel(this, QStringLiteral("lblService"));
    lblService->setWordWrap(true);
    lblService->hide();
    grdPrinters->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdPrinters->verticalHeader()->hide();
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("&Refresh"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(grdPrinters, 0, 0, 1, 3);
    layout->addWidget(lblService, 1, 0, 1, 3);
    layout->addWidget(Command1, 2, 1);
    layout->addWidget(cmdClose, 2, 2);
    layout->setColumnStretch(0, 1);
    resize(560, 300);
    OnEvent(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void PrinterListView::Command1_Click()
{
    const QList<SystemPrinter> printers = Spooler().printers();
    lblService->setText(
        Spooler().answered() ? QString() : QStringLiteral("No print service answers here: CUPS isn't running, or isn't installed."));
    lblService->setVisible(!Spooler().answered());
    grdPrinters->setRowCount(int(printers.size()));
    for (int row = 0; row < printers.size(); ++row) {
        const SystemPrinter &printer = printers[row];
        const int pending = Spooler().pendingJobs(printer.deviceName, PrinterStatus::jobLimit);
        const QStringList cells{printer.deviceName, printer.port, QString::number(pending)};
        for (int column = 0; column < cells.size(); ++column)
            grdPrinters->setItem(row, column, new QTableWidgetItem(cells[column]));
    }
}

} // namespace qlon

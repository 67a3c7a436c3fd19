#pragma once

#include "editors/PrinterStatus.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace qlon {

// The documents waiting in one printer's queue, from the system's spooler. The printer status
// screen uses it twice: as the queue behind "Spool" and its refresh cycle, which count the jobs,
// and as the "Details" of a printer, which adds the printer's port.
class PrinterQueueView : public QWidget, public PrinterCompanion
{
    Q_OBJECT

public:
    // `title`: "Print Queue" behind Spool, "Printer Details" behind Details.
    explicit PrinterQueueView(const QString &title, QWidget *parent = nullptr);

    void setPrinter(const QString &deviceName) override;
    // Lists the queue of the printer in cmbPrinters, and leaves its count in the shared pending
    // count.
    void Command1_Click() override;

    QComboBox *cmbPrinters;
    QLabel *Label1; // the printer and its port
    QTreeWidget *lstJobs;
    QPushButton *Command1; // "Refresh"
    QPushButton *cmdClose;
};

} // namespace qlon

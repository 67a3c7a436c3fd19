#pragma once

#include "editors/PrinterStatus.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTableWidget;

namespace qlon {

// "All Printers": every printer of the system with its port and the documents in its queue.
class PrinterListView : public QWidget, public PrinterCompanion
{
    Q_OBJECT

public:
    explicit PrinterListView(QWidget *parent = nullptr);

    // The list is of every printer; it has no printer of its own.
    void setPrinter(const QString &) override { }
    void Command1_Click() override;

    QTableWidget *grdPrinters;
    QLabel *lblService; // says so when no print service answers
    QPushButton *Command1; // "Refresh"
    QPushButton *cmdClose;
};

} // namespace qlon

#pragma once

#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qlon {

class ScreenTimer;

// A companion screen of the printer status screen. The host beside this tool supplies them
// under the names below; a button whose companion isn't there is disabled.
class PrinterCompanion
{
public:
    virtual ~PrinterCompanion() = default;
    // The printer the companion is about: the queue screen's cmbPrinters text, the details
    // screen's Label1 caption.
    virtual void setPrinter(const QString &deviceName) = 0;
    virtual void Command1_Click() = 0;
};

inline const QString PrinterQueueCompanion = QStringLiteral("PrinterQueue");
inline const QString PrinterListCompanion = QStringLiteral("PrinterList");
inline const QString ConnectionCompanion = QStringLiteral("IPConnection");
inline const QString PrinterDetailsCompanion = QStringLiteral("PrinterDetails");
inline const QString BiosCompanion = QStringLiteral("PrinterBios");
inline const QString TestPrinterCompanion = QStringLiteral("TestPrinter");

// "Printer Status": the four printers that the site configuration names, each with its port
// and the documents waiting in its queue, refreshed every ten seconds.
class PrinterStatus : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    static constexpr int panelCount = 4;
    // The most jobs a queue request returns.
    static constexpr int jobLimit = 127;

    explicit PrinterStatus(QWidget *parent = nullptr);

    void Form_Load() override;
    // The jobs waiting for the printer; 0 when there are none or the spooler can't tell.
    int GetPrinterQueue(const QString &deviceName);

    std::array<QGroupBox *, panelCount> Frame1;
    std::array<QLabel *, panelCount> lblPrinter;
    std::array<QLabel *, panelCount> lblPort;
    std::array<QLabel *, panelCount> lblPending;
    std::array<QPushButton *, panelCount> cmdDetails;
    std::array<QPushButton *, panelCount> cmdSpool;
    QPushButton *cmdPendingCaption; // the first panel's "Pending Documents", which shows the hidden fields
    QPushButton *cmdDone;
    QPushButton *cmdAllPrinters;
    QPushButton *cmdIPConn;
    QPushButton *cmdBios;
    QPushButton *cmdWinPrinters;
    QPushButton *cmdTestPrinter;
    QLabel *SSPanel1; // "Updating Status"
    QListWidget *List1; // the system's printers, hidden
    QLabel *lblStatus;
    QLineEdit *Text1; // the command box, hidden
    QLineEdit *Text2; // hidden

private:
    QGroupBox *makePanel(int panel, const QString &heading);
    void connectHandlers();
    void Timer1_Timer();
    QString printerName(int panel) const;
    bool inUse(int panel) const;
    // The companion of that name, loaded, or also shown; none when the host doesn't supply it.
    PrinterCompanion *companion(const QString &name);
    PrinterCompanion *showCompanion(const QString &name);
    void Spool_Click(int panel);
    void StartCPLApp(const QString &item);

    ScreenTimer *m_timer;
    bool m_stopped = false;
};

} // namespace qlon

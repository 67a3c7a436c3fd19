#pragma once

#include "core/ListRows.h"
#include "core/Yield.h"
#include "itemssold/InventoryWindow.h"
#include "itemssold/logic/CatalogueScan.h"
#include "itemssold/logic/OlderScans.h"
#include "listbuilder/logic/CSort.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCalendarWidget;
class QCheckBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace qlon {

class MList;
class VbComboBox;

// "Items Sold": the analysis of the monthly sales files. The user picks a span of dates and
// hours and a report, and "Update List" lists every item sold with its units and sales, which
// can be sorted and filtered by department. The main screen creates it through its sort options;
// a script shows it.
class QlonItemsSold : public QWidget, public LoadedScreen, private ScanProgress
{
    Q_OBJECT

public:
    explicit QlonItemsSold(QWidget *parent = nullptr);

    void Form_Load() override;
    // "Update List": the catalogue scan, its sort and the removal of repeats, then the scan of
    // the monthly files and the report.
    void UpdateList();
    void ReadSalesFiles();
    // The older scans: no control calls them; they stay for a caller that wants their figures.
    void ReadFoodFile();
    void ReadBarFile();
    void ReadBothFile();
    void SortCatalogue();
    void RemoveDuplicateRows();
    void DisableButtons() { setButtonsEnabled(false); }
    void EnableButtons() { setButtonsEnabled(true); }

    QCalendarWidget *MonthView1;
    QCalendarWidget *MonthView2;
    QLabel *Label2; // from date, "MM/DD/YY"
    QLabel *Label3; // to date
    QLabel *Label4; // the from date's day
    QLabel *Label5;
    std::array<QPushButton *, 2> SSCommand1; // a day later, a day earlier: the from date
    std::array<QPushButton *, 2> SSCommand2; // the same for the to date
    std::array<VbComboBox *, 2> Combo1; // from and to time of day
    QRadioButton *SSOption1; // "Food"
    QRadioButton *SSOption2; // "Bar"
    QRadioButton *SSOption3; // "Both"
    QRadioButton *SSOption5; // "Retail"
    QRadioButton *SSOption6; // "All"
    std::array<QRadioButton *, 4> SSOption4; // sort order
    QCheckBox *Check2; // "Numeric Sort"
    VbComboBox *Combo2; // "Show only this Department"
    QPushButton *SSCommand9; // "Update": the department filter
    QPushButton *SSCommand10; // "Edit": the departments editor
    QPushButton *SSCommand4; // "Update List"
    QPushButton *SSCommand11; // "Stop"
    QPushButton *SSCommand5; // "Print" on the receipt printer
    QPushButton *SSCommand6; // "Print" through the report engine
    QPushButton *SSCommand8; // "Inventory"
    QPushButton *SSCommand3; // "Done"
    QLabel *SSPanel1; // title and status line
    QProgressBar *ProgressBar1;
    QLabel *Label7; // the total sales volume
    MList *MList1; // the report
    ListRows MList2; // the report as the scan left it, for the filter; no one sees it
    ListRows MList3; // the catalogue rows; no one sees them
    QListWidget *List1; // printable rows in display order
    QListWidget *List2; // printable rows in scan order
    QListWidget *List4; // items not reported

private:
    void layOut();
    void connectHandlers();
    void setButtonsEnabled(bool enabled);
    void showDates();
    void stepDate(QCalendarWidget *calendar, int days);
    bool stopped();
    void SSCommand11_Click();
    void SSOption4_Click(int index);
    void Check2_Click();
    void RebuildPrintList();
    void SSCommand9_Click();
    void addKeepingEveryRow(const QByteArray &text);
    ScanSpan scanSpan() const;
    QString beginScan();
    void showScan(const SalesScan &scan, const QString &savedStatus);
    void runOlderScan(OlderScan kind);
    void SSCommand5_Click();
    void SSCommand6_Click();
    void SSCommand8_Click();
    void printSlip();
    void printThroughEngine();
    void showInventory();
    QByteArray modeLetter() const;
    ReportOptions reportOptions() const;
    void tellNotReported(const QByteArray &kind);
    void SSTransition1_Play();

    // The scans' progress, on the bar and the status line.
    void setMaximum(int maximum) override;
    void setValue(int value) override;
    bool stopRequested() override;
    void monthStarted(QDate month) override;

    CSort m_comparer;
    QList<ItemRec500> m_buttonTable;
    // Never set in this program: the back office's window, reached late-bound.
    InventoryWindow *m_inventory = nullptr;
    QString m_monthStatus;
    // The scans pass a yield point at every line; the screen yields on this clock.
    YieldClock m_yield;
};

} // namespace qlon

#pragma once

#include "core/RunOutputFile.h"
#include "listbuilder/SalesWorker.h"
#include "serversales/logic/SalesRecordset.h"
#include "serversales/logic/SpanSales.h"
#include "serversales/logic/WorkerSearches.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCalendarWidget;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

class DataControl;
class DataGrid;
class MList;
class QLONlistBuilder1;
class SalesGridModel;
class VbTextBox;

// The hidden worker, "Servers Individual Sales": loaded at start without being shown, it does
// the sales store's work for the main screen. The main screen writes its Label1 (the item) and
// Label2 (the status) before each call. Shown, it is a grid over the sales table with the day's
// sales of a server; the grid's changes stay in memory.
class QLONlistBuilder2 : public QWidget, public LoadedScreen, public SalesWorker
{
    Q_OBJECT

public:
    explicit QLONlistBuilder2(QWidget *parent = nullptr);

    void Form_Load() override;
    void BeginRun() override;
    void WriteLabels(const QString &item, const QString &status) override;
    // Counts the sales of the main list's row CurrentRow, the item named by Label1.
    void Get_Sales() override;
    void EndRun() override;
    // Leaves the type and the price text of the row CurrentRow in Label4 and Label5.
    void Parse_ListRow();
    // A test dump of the sales of 22 to 24 June 2003 into TempItems.dat and this screen's list.
    void BLD_DATA3();
    // The sales of the item of the main list's row CurrentRow over the main screen's dates, each
    // row counting 1: the name exactly, or containing the key.
    void Get_Sales2();
    void ItemSearch();
    // The sales of the servers whose number contains Label1 on the date of Text2.
    void BLD_DATA();

    DataGrid *grdDataGrid;
    DataControl *datPrimaryRS;
    QWidget *picButtons;
    QPushButton *cmdAdd;
    QPushButton *cmdUpdate;
    QPushButton *cmdDelete;
    QPushButton *cmdRefresh;
    QPushButton *cmdClose;
    QLineEdit *Text1;
    VbTextBox *Text2;
    QLineEdit *Text3;
    QLineEdit *Text4;
    QLineEdit *Text5;
    QLabel *Label1;
    QLabel *Label2;
    std::array<QLabel *, 5> Label3;
    QLabel *Label4;
    QLabel *Label5;
    MList *MList1;
    QCalendarWidget *MonthView1;
    QPushButton *Command1;
    QPushButton *Command2;
    QPushButton *SSCommand1;
    QPushButton *SSCommand2;
    QPushButton *SSCommand3;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    // Unloading gives the mouse pointer back its default shape.
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *buildGridColumn();
    QLayout *buildFields();
    void connectHandlers();
    void connectGrid();
    void Recordset_MoveComplete();
    // Runs one of the grid's operations: a failure shows its description, and nothing else changes.
    void recordsetOperation(const std::function<void()> &operation);
    void searchItem(ItemMatch match);
    void requireRecordset() const;
    void enableRunButtons(bool enabled);
    // The item's sales over the span; the span is read once for all rows of a run, and again
    // when the span changes.
    const ItemSales &salesOf(const QByteArray &name, const SalesSpan &span);
    void countInCategory(const QByteArray &type, double sales, double units);

    std::unique_ptr<SpanSales> m_spanSales;
    // TempItems.dat and TempItemsRec.dat, open from the first row of a run to its end.
    RunOutputFile m_tempItems;
    RunOutputFile m_trace;
    SalesSpan m_readSpan;
    SalesRecordset m_recordset;
    SalesGridModel *m_gridModel;
};

} // namespace qlon

#pragma once

#include "listbuilder/SalesWorker.h"
#include "serversales/logic/SpanSales.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCalendarWidget;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

class MList;
class QLONlistBuilder1;

// The hidden worker, "Servers Individual Sales": loaded at start without being shown, it does
// the sales store's work for the main screen. The main screen writes its Label1 (the item) and
// Label2 (the status) before each call.
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
    // Leaves the type and the price text of the row CurrentRow in Label4 and Label5.
    void Parse_ListRow();
    // A test dump of the sales of 22 to 24 June 2003 into TempItems.dat and this screen's list.
    void BLD_DATA3();

    QLineEdit *Text1;
    QLineEdit *Text2;
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

private:
    // The item's sales over the span; the span is read once for all rows of a run, and again
    // when the span changes.
    const ItemSales &salesOf(const QByteArray &name, const SalesSpan &span);
    void countInCategory(const QByteArray &type, double sales, double units);

    std::unique_ptr<SpanSales> m_spanSales;
    SalesSpan m_readSpan;
};

} // namespace qlon

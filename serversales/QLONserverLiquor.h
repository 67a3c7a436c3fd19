#pragma once

#include "listbuilder/ServerSalesScreen.h"
#include "store/ProgramGlobals.h"
#include "store/SalesStore.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>
#include <memory>
#include <vector>

class QCalendarWidget;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

class DataControl;
class MList;
class VbComboBox;
class VbTextBox;

// "Servers Individual Sales": a manager picks a server and a span, types dates and times on the
// screen's keypad, and reads that server's sales. The screen keeps the sales rows as the table
// held them when it loaded; "Update" searches them.
class QLONserverLiquor : public QWidget, public LoadedScreen, public ServerSalesScreen
{
    Q_OBJECT

public:
    explicit QLONserverLiquor(QWidget *parent = nullptr);

    void Form_Load() override;
    void OpenServerSales() override;
    // "Update": clears the lists, sets the totals to "0" and searches.
    void RunServerSearch();
    void Get_Drink2();

    // The keypad's place, in the form's twips: 800 on the screen, 12000 below the working area.
    int keypadTop() const { return m_keypadTop; }

    VbComboBox *Combo1;
    QLineEdit *Text1;
    VbTextBox *Text2;
    QLineEdit *Text3;
    QLineEdit *Text4;
    QLineEdit *Text5;
    VbTextBox *Text6;
    VbTextBox *Text7;
    VbTextBox *Text8;
    VbTextBox *Text9;
    std::array<QLabel *, 5> Label3;
    QLabel *Label1;
    QLabel *Label2;
    QLabel *Label7; // the keypad's box: 6 to 9
    QLabel *Label8; // the upper bound of the department walk
    MList *MList1;
    MList *MList2;
    QCalendarWidget *MonthView1;
    QFrame *SSPanel4;
    std::array<QPushButton *, 15> SSCommand6;
    QPushButton *SSCommand7;
    QPushButton *SSCommand5;
    QPushButton *Command1;
    QPushButton *SSCommand1;
    QPushButton *SSCommand2;
    QPushButton *SSCommand3;
    QPushButton *SSCommand4;
    // The data control's button strip: on the form, with no action on this screen, and kept out
    // of sight so that no one presses a button that does nothing.
    DataControl *datPrimaryRS; // kept out of sight: the screen shows no rows to move through
    QWidget *picButtons;
    QPushButton *cmdAdd;
    QPushButton *cmdUpdate;
    QPushButton *cmdDelete;
    QPushButton *cmdRefresh;
    QPushButton *cmdClose;

protected:
    // Unloading gives the mouse pointer back its default shape.
    void closeEvent(QCloseEvent *event) override;

private:
    void buildKeypad();
    void connectHandlers();
    void Fill_Employees();
    void showKeypad(int top, int field);
    void placeKeypad(int top);
    void SSCommand6_Click(int index);
    VbTextBox *activeBox() const;
    void enableRunButtons(bool enabled);

    // The recordset: the database as the load opened it, none when it couldn't, and its rows then.
    std::unique_ptr<SalesStore> m_store;
    SalesRowsMark m_loadedRows;
    CategoryValues m_departments; // names, volumes and units of the department lines
    int m_keypadTop = 12000;
};

} // namespace qlon

#pragma once

#include "core/ListRows.h"
#include "listbuilder/ItemsSoldEngine.h"
#include "listbuilder/logic/CSort.h"
#include "listbuilder/logic/LoadList.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>
#include <memory>

class QButtonGroup;
class QCalendarWidget;
class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace qlon {

class MList;
class VbComboBox;

// The start-up screen, "Items Sold": the manager picks a category, two dates and two times of
// day, loads the list of items, calculates their sales, sorts, prints or exports the list.
// Its state lives in its controls, which bear the names by which the rest of the program and
// the scripts reach them.
// The times of day of the hour pickers, "12:00 am" to "11:55 pm" in steps of five and ten
// minutes: deliberately without five past the hour.
QByteArrayList TimeOfDayLines();

class QLONlistBuilder1;
// The main screen, loaded at its first touch.
QLONlistBuilder1 *MainScreen();

class QLONlistBuilder1 : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    explicit QLONlistBuilder1(QWidget *parent = nullptr);

    void Form_Load() override;
    void Fill_Times();

    // Prints the working list three items across, through the template ItemsSold.vrd.
    void Print_ItemsSold();

    // The sorts of the working list; the last two are offered but no control calls them.
    void Sort_ByTotalSold();
    void Sort_ByItemName();
    void Sort_BySalesVolume();
    void Sort_BySold();
    void Sort_ByPrice();

    // The screen's working globals, named as the rest of the program knows them.
    static constexpr int categoryRows = 101;

    // The working list, and the run's plain rows that no one sees: each department's sales and
    // units, row for row with Combo1, and the item and total rows that Remove Items starts from.
    MList *MList1;
    ListRows MList2;
    ListRows MList3;
    ListRows MList4;

    QGroupBox *SSFrame1;
    QRadioButton *SSOption1;
    QRadioButton *SSOption2;
    QRadioButton *SSOption3;
    QRadioButton *SSOption5;
    QRadioButton *SSOption6;
    QRadioButton *SSOption7;
    VbComboBox *Combo1;
    QPushButton *Command3;
    QPushButton *SSCommand2;

    QFrame *Shape1;
    QFrame *Shape2;
    QCalendarWidget *MonthView1;
    QCalendarWidget *MonthView2;
    QLabel *Label2;
    QLabel *Label3;
    QPushButton *SSCommand10;
    VbComboBox *Combo2;
    VbComboBox *Combo3;

    QPushButton *SSCommand4;
    QPushButton *Command1;
    QPushButton *SSCommand5;
    QPushButton *SSCommand6;
    QPushButton *SSCommand3;
    QPushButton *SSCommand7;
    QPushButton *SSCommand8;
    QPushButton *SSCommand9;
    QPushButton *cmdItemsSold; // ours: shows the Items Sold analysis
    QPushButton *SSCommand1;
    std::array<QRadioButton *, 4> SSOption4;
    QCheckBox *SSCheck1;
    QPushButton *Command2;
    QPushButton *Command4;

    std::array<QLabel *, 6> Label1;
    std::array<QLabel *, 2> Label4;
    QLabel *Label5;
    QLabel *Label6;
    QLabel *Label7;
    QLabel *Label8;
    QLabel *Label9;
    QLabel *Label10;
    QLabel *Label11;
    QFrame *SSPanel3;

private:
    void createControls();
    void layOutControls();
    void connectHandlers();
    void showCalendarDates();
    void loadDepartments();

    CategoryChoice categoryChoice() const;

    void SSCommand2_Click();
    void SSCommand4_Click();
    void Command1_Click();
    void SSCommand5_Click();
    void SSOption4_Click(int index);
    void SSCommand7_Click();
    void SSCommand6_Click();
    void Inilize_Print();
    void SSCommand3_Click();
    void BLD_DATA2();
    void removeRunRows();
    void addTotalRows();
    void Combo1_Change();
    void MonthView_Click();
    void SSCommand10_Click();
    void Command3_Click();
    void SSCommand1_Click();

    CSort m_comparer;
    std::unique_ptr<ItemsSoldEngine> m_report;
    QButtonGroup *m_reportOptions;
    QButtonGroup *m_sortOptions;
};

} // namespace qlon

#pragma once

#include "editors/logic/ItemEditing.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace qlon {

class ScreenTimer;
class VbComboBox;
class VbTextBox;

// "Food Item Button Display": the editor of one record of a catalogue file, which its host
// names with setItem. It shows no message: a missing file or a number out of range makes an
// operation do nothing.
class FItemButtonFood : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    explicit FItemButtonFood(QWidget *parent = nullptr);

    void Form_Load() override;
    // The file (a site path) and the record number the host hands over; LoadItem shows it.
    void setItem(const QByteArray &path, qint32 number);
    void LoadItem();
    void Get_Data();
    void FoodCost();
    void make_MOD();
    void ModTitle();
    void AddNew();
    void SaveNew();
    void SaveUpdate();
    void Delete();
    void Cancel();
    void Clear();
    void Refresh();
    // The department picker from the departments file, after its editor closed.
    void fillDepartments();

    QLabel *lblTitle;
    QPushButton *cmdSample; // "Button Sample"
    QLabel *lblPrice;
    QLabel *lblHappyHour;
    VbTextBox *txtButtonTitle;
    QLineEdit *txtReceipt;
    QLineEdit *txtKitchen;
    VbTextBox *txtPrice;
    QLineEdit *txtHappyHour;
    QLineEdit *txtButtonNumber;
    QLineEdit *txtLongDescription;
    QCheckBox *chkVisible;
    QCheckBox *chkTaxable;
    QCheckBox *chkKitPrinter;
    QCheckBox *chkBarPrinter;
    VbComboBox *cboDepartment;
    QPushButton *cmdEditDepartments;
    VbComboBox *cboCategory;
    VbComboBox *cboModifier;
    QPushButton *cmdView;
    QCheckBox *chkPizza;
    QPushButton *cmdPizzaYes;
    QPushButton *cmdPizzaNo;
    QLineEdit *txtPizzaSize;
    QGroupBox *fraKitchen;
    std::array<QRadioButton *, 7> optKitchen; // "NONE", then "Kit 3" to "Kit 8"
    QLabel *lblRecord;
    QLabel *lblFoodCost;
    QLabel *lblFoodPercent;
    QPushButton *cmdAddNew;
    QPushButton *cmdSaveNew;
    QPushButton *cmdSaveUpdate;
    QPushButton *cmdDelete;
    QPushButton *cmdCancel;
    QPushButton *cmdRefresh;
    QPushButton *cmdClear;
    QWidget *pnlDeleting; // "Deleting Item - Just A Moment"
    QProgressBar *prgDeleting;
    ScreenTimer *tmrDeleting;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildFields();
    QWidget *buildChoices();
    QWidget *buildCommands();
    void connectHandlers();
    void showItem(const ItemRec500 &record);
    ItemView screenView() const;
    void setKitchenPrinter(int printer);
    int kitchenPrinter() const;
    void enableKitchenRoutes(bool enabled);
    void TitleLostFocus();
    void PizzaGotFocus();
    void ViewModifierList();
    void EditDepartments();
    void enableCommands(bool addDeleteUpdate, bool saveNewCancel);
    // The file the host shows, or the one handed over when no host is there.
    QByteArray pathFromHost() const;

    QByteArray m_path;
    qint32 m_number = 0;
    ItemRec500 m_buffer; // the one record buffer: what was read last, and what is written
};

} // namespace qlon

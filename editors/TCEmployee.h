#pragma once

#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace qlon {

class EmployeeRec1000;

// The list editor that the host beside this tool supplies under the name "ListEditor": the
// employee editor shows it with the title and the file of a picker's list.
class ListEditorCompanion
{
public:
    virtual ~ListEditorCompanion() = default;
    virtual void setList(const QString &title, const QByteArray &file) = 0; // SSPanel1 and Label1
    virtual void Fill_List() = 0;
};

// The phone list that the host supplies under the name "PhoneList".
class PhoneListCompanion
{
public:
    virtual ~PhoneListCompanion() = default;
    virtual void Command3_Click() = 0;
};

// "Employee List": the operator lists, adds, changes and deletes the employees of
// Data\Zemployee.dat below SiteRoot. The screen stores what was typed; the rules on the tips
// are not checked.
class TCEmployee : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    static constexpr int jobCount = 4;

    explicit TCEmployee(QWidget *parent = nullptr);

    void Form_Load() override;
    void Fill_Jobs();
    // The pickers' lists read anew after their list editor saved, each keeping the text it shows.
    void reloadLists();
    // Shows the record whose number stands in "Record", with one deliberate difference: the
    // pickers of jobs 3 and 4 take JobTitle1 and JobTitle2.
    void Fill_text();
    // Rebuilds the list by name (0), number (1) or phone (2).
    void Command1_Click(int key);

    QListWidget *List1;
    QPushButton *cmdSortName;
    QPushButton *cmdSortNumb;
    QPushButton *cmdSortPhone;
    QRadioButton *optActive;
    QRadioButton *optAll;
    QLabel *lblSortBy;
    QLineEdit *txtRecord;
    QComboBox *cmbType; // the job types of the list filter
    QLineEdit *txtName;
    QLineEdit *txtAddress;
    QLineEdit *txtCity;
    QLineEdit *txtState;
    QLineEdit *txtZip;
    QLineEdit *txtPhone;
    QLineEdit *txtEmergency;
    QLineEdit *txtBirthDate;
    QLineEdit *txtSocSec;
    QLineEdit *txtStartDate;
    QLineEdit *txtHourlyRate;
    QLineEdit *txtCommission;
    QLineEdit *txtEmployeeNumber;
    QPlainTextEdit *txtNotes;
    std::array<QComboBox *, jobCount> cmbJob;
    std::array<QLineEdit *, jobCount> txtJobRate;
    std::array<QComboBox *, jobCount> cmbJobDepartment;
    QComboBox *cmbDefaultJob;
    QComboBox *cmbDefaultDepartment;
    QCheckBox *chkTransfers;
    QCheckBox *chkInactive;
    QPushButton *cmdDone;
    QPushButton *cmdSaveUpdate;
    QPushButton *cmdAddNew;
    QPushButton *cmdSaveNew;
    QPushButton *cmdDelete;
    QPushButton *cmdPhoneList;

private:
    QWidget *makeJobGroups();
    void connectHandlers();
    QString employeePath() const;
    QString listPath(QByteArrayView file) const;
    QList<QComboBox *> jobPickers() const;
    QList<QComboBox *> departmentPickers() const;
    QList<QLineEdit *> textBoxes() const;
    // The text boxes of the personal fields, each with its field of the record.
    QList<std::pair<QLineEdit *, int>> fieldBoxes() const;
    void showRecord(int number, bool jobsThreeAndFourFromOneAndTwo);
    void List1_Click(QListWidgetItem *item);
    void save();
    void applyDefaults();
    EmployeeRec1000 recordOnScreen() const;
    void AddNew_Click();
    void SaveNew_Click();
    void Delete_Click();
    void clearFields();
    void editList(const QString &title, const QByteArray &file);
    int recordCount() const;
    int sortKey() const;
};

} // namespace qlon

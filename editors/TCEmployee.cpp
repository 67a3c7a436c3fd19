#include "editors/TCEmployee.h"

#include "core/Ansi.h"
#include "core/Conversions.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "editors/logic/EmployeeDelete.h"
#include "store/Departments.h"
#include "store/EmployeeRec1000.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace qlon {

namespace {

const QByteArray employeeTemp = QByteArrayLiteral("Data\\Zemployee.tmp");
const QStringList sortLabels = {QStringLiteral("name"), QStringLiteral("numb"), QStringLiteral("ph")};
constexpr std::array<EmployeeRec1000::Field, 3> sortFields = {
    EmployeeRec1000::EmployeeName, EmployeeRec1000::EmployeeNumber, EmployeeRec1000::Phone};
constexpr std::array<EmployeeRec1000::Field, TCEmployee::jobCount> jobTitles = {
    EmployeeRec1000::JobTitle1, EmployeeRec1000::JobTitle2, EmployeeRec1000::JobTitle3, EmployeeRec1000::JobTitle4};
constexpr std::array<EmployeeRec1000::Field, TCEmployee::jobCount> jobRates = {
    EmployeeRec1000::JobRate1, EmployeeRec1000::JobRate2, EmployeeRec1000::JobRate3, EmployeeRec1000::JobRate4};
constexpr std::array<EmployeeRec1000::Field, TCEmployee::jobCount> jobDepartments = {
    EmployeeRec1000::JobDepartment1, EmployeeRec1000::JobDepartment2, EmployeeRec1000::JobDepartment3, EmployeeRec1000::JobDepartment4};
// A box with the focus is pale yellow, as stored BGR C0 FF FF.
const QColor focusColour(0xFF, 0xFF, 0xC0);

// A list entry that sorts as the old list box did, letters of either case alike.
class EmployeeEntry : public QListWidgetItem
{
public:
    EmployeeEntry(const QString &text, int record)
        : QListWidgetItem(text)
    {
        setData(Qt::UserRole, record);
    }
    bool operator<(const QListWidgetItem &other) const override { return text().compare(other.text(), Qt::CaseInsensitive) < 0; }
};

// Tints a box pale yellow while it has the focus and white when it loses it.
class FocusTint : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            auto *box = static_cast<QWidget *>(watched);
            QPalette palette = box->palette();
            palette.setColor(QPalette::Base, event->type() == QEvent::FocusIn ? focusColour : QColor(Qt::white));
            box->setPalette(palette);
        }
        return false;
    }
};

QLineEdit *textBox(QWidget *parent, const QString &name, const QString &tip = {})
{
    QLineEdit *box = MakeTextBox(parent, name);
    box->setToolTip(tip);
    return box;
}

QComboBox *picker(QWidget *parent, const QString &name)
{
    auto *box = Named(new QComboBox(parent), name);
    box->setEditable(true);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(10);
    box->setToolTip(QStringLiteral("You may select from the drop down list or type in a new one"));
    return box;
}

QByteArray ansi(const QLineEdit *box)
{
    return ToAnsi(box->text());
}

QByteArray ansi(const QComboBox *box)
{
    return ToAnsi(box->currentText());
}

void setBlank(QComboBox *box, const QString &text)
{
    if (TrimBlanks(ansi(box)).isEmpty())
        box->setEditText(text);
}

void setBlank(QLineEdit *box, const QString &text)
{
    if (TrimBlanks(ansi(box)).isEmpty())
        box->setText(text);
}

} // namespace

TCEmployee::TCEmployee(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Employee List"));
    setAttribute(Qt::WA_DeleteOnClose);
    List1 = Named(new QListWidget(this), QStringLiteral("List1"));
    List1->setSortingEnabled(true);
    cmdSortName = MakeButton(this, QStringLiteral("cmdSortName"), QStringLiteral("Name"));
    cmdSortNumb = MakeButton(this, QStringLiteral("cmdSortNumb"), QStringLiteral("Numb"));
    cmdSortPhone = MakeButton(this, QStringLiteral("cmdSortPhone"), QStringLiteral("Phone"));
    optActive = Named(new QRadioButton(QStringLiteral("Active"), this), QStringLiteral("optActive"));
    optAll = Named(new QRadioButton(QStringLiteral("All"), this), QStringLiteral("optAll"));
    optAll->setChecked(true);
    lblSortBy = MakeLabel(this, QStringLiteral("lblSortBy"));
    txtRecord = textBox(this, QStringLiteral("txtRecord"));
    cmbType = Named(new QComboBox(this), QStringLiteral("cmbType"));
    txtName = textBox(this, QStringLiteral("txtName"));
    txtAddress = textBox(this, QStringLiteral("txtAddress"));
    txtCity = textBox(this, QStringLiteral("txtCity"));
    txtState = textBox(this, QStringLiteral("txtState"));
    txtZip = textBox(this, QStringLiteral("txtZip"));
    txtPhone = textBox(this, QStringLiteral("txtPhone"));
    txtEmergency = textBox(this, QStringLiteral("txtEmergency"));
    txtBirthDate = textBox(this, QStringLiteral("txtBirthDate"));
    txtSocSec = textBox(this, QStringLiteral("txtSocSec"));
    txtStartDate = textBox(this, QStringLiteral("txtStartDate"));
    txtHourlyRate = textBox(this, QStringLiteral("txtHourlyRate"),
        QStringLiteral("This is the Hourly rate used if you do require the employee to select a job when they clock in"));
    txtCommission = textBox(this, QStringLiteral("txtCommission"), QStringLiteral("Please use whole numbers with no puncutation"));
    txtEmployeeNumber = textBox(this, QStringLiteral("txtEmployeeNumber"), QStringLiteral("Please use 4 digits between 1002 - 9990 "));
    txtNotes = Named(new QPlainTextEdit(this), QStringLiteral("txtNotes"));
    chkTransfers = Named(new QCheckBox(QStringLiteral("Accepts Transfered Tables (Quillon users)"), this), QStringLiteral("chkTransfers"));
    chkTransfers->setToolTip(QStringLiteral("This should be checked for all servers and bartenders - If Unchedked this employee "
                                            "will not be able to receive transfered table"));
    chkInactive = Named(new QCheckBox(QStringLiteral("IN-Active"), this), QStringLiteral("chkInactive"));
    chkInactive->setToolTip(QStringLiteral("Employss is INACTIVE when checked and ACTIVE when unchecked. Whren INACTIVE they will "
                                           "not appear on the time sheet"));
    cmdDone = MakeButton(this, QStringLiteral("cmdDone"), QStringLiteral("&Done"));
    cmdSaveUpdate = MakeButton(this, QStringLiteral("cmdSaveUpdate"), QStringLiteral("Save Update"));
    cmdAddNew = MakeButton(this, QStringLiteral("cmdAddNew"), QStringLiteral("Add New"));
    cmdSaveNew = MakeButton(this, QStringLiteral("cmdSaveNew"), QStringLiteral("Save New"));
    cmdDelete = MakeButton(this, QStringLiteral("cmdDelete"), QStringLiteral("D&elete"));
    cmdPhoneList = MakeButton(this, QStringLiteral("cmdPhoneList"), QStringLiteral("Phone List"));
    cmdSaveNew->setEnabled(false);
    cmdSaveUpdate->setEnabled(false);

    auto *layout = new QGridLayout(this);
    auto *listSide = new QGridLayout;
    listSide->addWidget(MakeLabel(this, {}, QStringLiteral("List of Employees")), 0, 0, 1, 3);
    listSide->addWidget(List1, 1, 0, 1, 3);
    listSide->addWidget(cmdSortName, 2, 0);
    listSide->addWidget(cmdSortNumb, 2, 1);
    listSide->addWidget(cmdSortPhone, 2, 2);
    auto *listOnly = new QGroupBox(QStringLiteral("List Only"), this);
    auto *options = new QHBoxLayout(listOnly);
    options->addWidget(optActive);
    options->addWidget(optAll);
    listSide->addWidget(listOnly, 3, 0, 1, 3);
    listSide->addWidget(MakeLabel(this, {}, QStringLiteral("Sort By")), 4, 0);
    listSide->addWidget(lblSortBy, 4, 1);
    listSide->addWidget(cmbType, 4, 2);
    listSide->addWidget(MakeLabel(this, {}, QStringLiteral("Record")), 5, 0);
    listSide->addWidget(txtRecord, 5, 1, 1, 2);
    layout->addLayout(listSide, 0, 0, 2, 1);

    auto *personal = new QFormLayout;
    personal->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const QList<std::pair<QString, QWidget *>> fields = {{QStringLiteral("Name"), txtName}, {QStringLiteral("Address"), txtAddress},
        {QStringLiteral("City"), txtCity}, {QStringLiteral("State"), txtState}, {QStringLiteral("Zip"), txtZip},
        {QStringLiteral("Phone"), txtPhone}, {QStringLiteral("Emergency Contact"), txtEmergency}, {QStringLiteral("DOB"), txtBirthDate},
        {QStringLiteral("Soc Sec "), txtSocSec}, {QStringLiteral("Start Date"), txtStartDate},
        {QStringLiteral("Hourly Rate"), txtHourlyRate}, {QStringLiteral("Commission Rate (10, 20, 30 ect)"), txtCommission},
        {QStringLiteral("Employee Number (1002 -9990)"), txtEmployeeNumber}, {QStringLiteral("Notes"), txtNotes}};
    for (const auto &[caption, field] : fields)
        personal->addRow(caption, field);
    personal->addRow(chkTransfers);
    personal->addRow(chkInactive);
    layout->addLayout(personal, 0, 1);
    layout->addWidget(makeJobGroups(), 0, 2);
    auto *commands = new QHBoxLayout;
    for (QPushButton *command : {cmdDone, cmdSaveUpdate, cmdAddNew, cmdSaveNew, cmdDelete, cmdPhoneList})
        commands->addWidget(command);
    layout->addLayout(commands, 1, 1, 1, 2);
    layout->setColumnStretch(1, 2);
    layout->setColumnStretch(0, 1);

    auto *tint = new FocusTint(this);
    for (QLineEdit *box : textBoxes())
        box->installEventFilter(tint);
    txtNotes->installEventFilter(tint);
    connectHandlers();
    resize(1000, 680);
}

QWidget *TCEmployee::makeJobGroups()
{
    auto *jobs = new QWidget(this);
    auto *column = new QVBoxLayout(jobs);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    const auto addGroup = [&](const QString &title, QComboBox *job, QLineEdit *rate, QComboBox *department, const QString &editName) {
        auto *group = new QGroupBox(title, jobs);
        auto *form = new QGridLayout(group);
        form->setContentsMargins(6, 2, 6, 2);
        form->setVerticalSpacing(2);
        form->addWidget(job, 0, 0, 1, 2);
        form->addWidget(MakeButton(group, editName + QStringLiteral("Job"), QStringLiteral("Edit"),
                            QStringLiteral("Edit the drop down list and add budget information for Job Titles")),
            0, 2);
        if (rate) {
            form->addWidget(MakeLabel(group, {}, QStringLiteral("Hourly Rate")), 1, 0);
            form->addWidget(rate, 1, 1);
        }
        const int departmentRow = rate ? 2 : 1;
        form->addWidget(MakeLabel(group, {}, QStringLiteral("Department")), departmentRow, 0);
        form->addWidget(department, departmentRow, 1);
        form->addWidget(MakeButton(group, editName + QStringLiteral("Department"), QStringLiteral("Edit"),
                            QStringLiteral("Edit the drop down list and add budget information for Department Titles")),
            departmentRow, 2);
        form->setColumnStretch(1, 1);
        column->addWidget(group);
    };
    for (int job = 0; job < jobCount; ++job) {
        cmbJob[job] = picker(jobs, ArrayName("cmbJob", job));
        txtJobRate[job] = textBox(jobs, ArrayName("txtJobRate", job));
        cmbJobDepartment[job] = picker(jobs, ArrayName("cmbJobDepartment", job));
        addGroup(
            QStringLiteral("Job Title %1").arg(job + 1), cmbJob[job], txtJobRate[job], cmbJobDepartment[job], ArrayName("cmdEdit", job));
    }
    cmbDefaultJob = picker(jobs, QStringLiteral("cmbDefaultJob"));
    cmbDefaultDepartment = picker(jobs, QStringLiteral("cmbDefaultDepartment"));
    addGroup(QStringLiteral("Default"), cmbDefaultJob, nullptr, cmbDefaultDepartment, QStringLiteral("cmdEditDefault"));
    return jobs;
}

void TCEmployee::connectHandlers()
{
    OnEvent(cmdSortName, &QPushButton::clicked, this, [this] { Command1_Click(0); });
    OnEvent(cmdSortNumb, &QPushButton::clicked, this, [this] { Command1_Click(1); });
    OnEvent(cmdSortPhone, &QPushButton::clicked, this, [this] { Command1_Click(2); });
    OnEvent(optActive, &QRadioButton::clicked, this, [this] { Command1_Click(sortKey()); });
    OnEvent(optAll, &QRadioButton::clicked, this, [this] { Command1_Click(sortKey()); });
    QObject::connect(
        List1, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { RunHandler([=, this] { List1_Click(item); }); });
    OnEvent(txtRecord, &QLineEdit::returnPressed, this, [this] { Fill_text(); });
    OnEvent(cmdDone, &QPushButton::clicked, this, [this] { close(); });
    OnEvent(cmdSaveUpdate, &QPushButton::clicked, this, [this] { save(); });
    OnEvent(cmdAddNew, &QPushButton::clicked, this, [this] { AddNew_Click(); });
    OnEvent(cmdSaveNew, &QPushButton::clicked, this, [this] { SaveNew_Click(); });
    OnEvent(cmdDelete, &QPushButton::clicked, this, [this] { Delete_Click(); });
    RequireCompanion(cmdPhoneList, QStringLiteral("PhoneList"));
    OnEvent(cmdPhoneList, &QPushButton::clicked, this, [] {
        if (auto *phones = dynamic_cast<PhoneListCompanion *>(Screens().touch(QStringLiteral("PhoneList"))))
            phones->Command3_Click();
    });
    const auto onEdit = [this](const QString &name, const QString &title, const QByteArray &file) {
        if (auto *edit = findChild<QPushButton *>(name)) {
            RequireCompanion(edit, QStringLiteral("ListEditor"));
            OnEvent(edit, &QPushButton::clicked, this, [this, title, file] { editList(title, file); });
        }
    };
    for (int job = 0; job < jobCount; ++job) {
        onEdit(ArrayName("cmdEdit", job) + QStringLiteral("Job"), QStringLiteral("Jobs 1 List"), "data\\jobs1.dat");
        onEdit(ArrayName("cmdEdit", job) + QStringLiteral("Department"), QStringLiteral("Department List"), "data\\Dept.dat");
    }
    onEdit(QStringLiteral("cmdEditDefaultJob"), QStringLiteral("Jobs 1 List"), "data\\jobs1.dat");
    onEdit(QStringLiteral("cmdEditDefaultDepartment"), QStringLiteral("Department List"), "data\\Dept.dat");
}

QString TCEmployee::employeePath() const
{
    return listPath(EmployeeFile);
}

QString TCEmployee::listPath(QByteArrayView file) const
{
    return HostPath(Site().SiteRoot + file.toByteArray());
}

QList<QComboBox *> TCEmployee::jobPickers() const
{
    return {cmbJob[0], cmbJob[1], cmbJob[2], cmbJob[3], cmbDefaultJob};
}

QList<QComboBox *> TCEmployee::departmentPickers() const
{
    return {cmbJobDepartment[0], cmbJobDepartment[1], cmbJobDepartment[2], cmbJobDepartment[3], cmbDefaultDepartment};
}

QList<QLineEdit *> TCEmployee::textBoxes() const
{
    return {txtName, txtAddress, txtCity, txtState, txtZip, txtPhone, txtEmergency, txtBirthDate, txtSocSec, txtStartDate, txtHourlyRate,
        txtCommission, txtEmployeeNumber, txtJobRate[0], txtJobRate[1], txtJobRate[2], txtJobRate[3]};
}

QList<std::pair<QLineEdit *, int>> TCEmployee::fieldBoxes() const
{
    return {{txtEmployeeNumber, EmployeeRec1000::EmployeeNumber}, {txtPhone, EmployeeRec1000::Phone},
        {txtName, EmployeeRec1000::EmployeeName}, {txtAddress, EmployeeRec1000::Address}, {txtCity, EmployeeRec1000::City},
        {txtState, EmployeeRec1000::State}, {txtZip, EmployeeRec1000::Zip}, {txtBirthDate, EmployeeRec1000::BirthDate},
        {txtStartDate, EmployeeRec1000::StartDate}, {txtSocSec, EmployeeRec1000::SocSec}, {txtHourlyRate, EmployeeRec1000::HourlyRate},
        {txtCommission, EmployeeRec1000::CommissionRate}, {txtEmergency, EmployeeRec1000::EmergencyContact}};
}

int TCEmployee::recordCount() const
{
    if (!FileExists(employeePath()))
        return 0;
    return RecordFile(employeePath(), EmployeeRec1000::size).CountRecords();
}

int TCEmployee::sortKey() const
{
    return std::max(0, int(sortLabels.indexOf(lblSortBy->text())));
}

void TCEmployee::Form_Load()
{
    const int count = recordCount();
    if (count > 0) {
        RecordFile file(employeePath(), EmployeeRec1000::size);
        for (int number = 1; number <= count; ++number)
            List1->addItem(
                new EmployeeEntry(FromAnsi(EmployeeRec1000(file.GetRecord(number)).trimmedField(EmployeeRec1000::EmployeeName)), number));
    }
    chkTransfers->setVisible(FileExists(HostPath("C:\\Quillon\\Quillon.exe")));
    Fill_Jobs();
}

void TCEmployee::Fill_Jobs()
{
    const auto fill = [this](QByteArrayView file, const QList<QComboBox *> &pickers) {
        for (QComboBox *box : pickers)
            box->clear();
        if (!FileExists(listPath(file)))
            return;
        for (const QByteArray &line : ReadDepartmentNames(listPath(file))) {
            for (QComboBox *box : pickers)
                box->addItem(FromAnsi(line));
        }
    };
    fill(JobTitlesFile, jobPickers());
    fill(JobTypesFile, {cmbType});
    fill(PayrollDepartmentsFile, departmentPickers());
}

void TCEmployee::reloadLists()
{
    QList<QComboBox *> pickers = jobPickers() + departmentPickers();
    pickers.append(cmbType);
    QStringList shown;
    for (const QComboBox *picker : pickers)
        shown.append(picker->currentText());
    Fill_Jobs();
    for (int index = 0; index < pickers.size(); ++index)
        pickers[index]->setCurrentText(shown[index]);
}

void TCEmployee::Command1_Click(int key)
{
    List1->clear();
    const int count = recordCount();
    if (!FileExists(employeePath()))
        return;
    RecordFile file(employeePath(), EmployeeRec1000::size);
    for (int number = 1; number <= count; ++number) {
        const EmployeeRec1000 employee(file.GetRecord(number));
        if (optActive->isChecked() && NumericValue(employee.field(EmployeeRec1000::InactiveFlag)) == -1)
            continue;
        List1->addItem(new EmployeeEntry(FromAnsi(employee.trimmedField(sortFields[key])), number));
        lblSortBy->setText(sortLabels[key]);
    }
}

void TCEmployee::List1_Click(QListWidgetItem *item)
{
    showRecord(item->data(Qt::UserRole).toInt(), false);
}

void TCEmployee::Fill_text()
{
    showRecord(int(NumericValue(ansi(txtRecord))), true);
}

void TCEmployee::showRecord(int number, bool jobsThreeAndFourFromOneAndTwo)
{
    if (number < 1)
        return;
    const EmployeeRec1000 employee(RecordFile(employeePath(), EmployeeRec1000::size).GetRecord(number));
    const auto text = [&](int field) { return FromAnsi(employee.trimmedField(field)); };
    for (const auto &[box, field] : fieldBoxes())
        box->setText(text(field));
    txtNotes->setPlainText(text(EmployeeRec1000::Notes));
    for (int job = 0; job < jobCount; ++job) {
        // Deliberately, as the old screen did: shown by number, jobs 3 and 4 take the titles of 1 and 2.
        const int titleOf = jobsThreeAndFourFromOneAndTwo && job >= 2 ? job - 2 : job;
        cmbJob[job]->setEditText(text(jobTitles[titleOf]));
        txtJobRate[job]->setText(text(jobRates[job]));
        cmbJobDepartment[job]->setEditText(text(jobDepartments[job]));
    }
    cmbDefaultJob->setEditText(text(EmployeeRec1000::DefaultJob));
    cmbDefaultDepartment->setEditText(text(EmployeeRec1000::DefaultDepartment));
    chkTransfers->setChecked(NumericValue(employee.field(EmployeeRec1000::AcceptsTransfers)) != 0);
    chkInactive->setChecked(NumericValue(employee.field(EmployeeRec1000::InactiveFlag)) != 0);
    txtRecord->setText(QString::number(number));
    cmdSaveUpdate->setEnabled(true);
}

void TCEmployee::applyDefaults()
{
    setBlank(txtHourlyRate, QStringLiteral("0.00"));
    setBlank(cmbDefaultJob, QStringLiteral("Other"));
    setBlank(cmbDefaultDepartment, QStringLiteral("Not Assigned"));
    setBlank(txtJobRate[0], QStringLiteral("0.00"));
    setBlank(cmbJob[0], QStringLiteral("Other"));
    setBlank(cmbJobDepartment[0], QStringLiteral("Not Assigned"));
}

EmployeeRec1000 TCEmployee::recordOnScreen() const
{
    EmployeeRec1000 employee;
    for (const auto &[box, field] : fieldBoxes())
        employee.setField(field, ansi(box));
    employee.setField(EmployeeRec1000::Notes, ToAnsi(txtNotes->toPlainText()));
    for (int job = 0; job < jobCount; ++job) {
        employee.setField(jobTitles[job], ansi(cmbJob[job]));
        employee.setField(jobRates[job], ansi(txtJobRate[job]));
        employee.setField(jobDepartments[job], ansi(cmbJobDepartment[job]));
    }
    employee.setField(EmployeeRec1000::DefaultJob, ansi(cmbDefaultJob));
    employee.setField(EmployeeRec1000::DefaultDepartment, ansi(cmbDefaultDepartment));
    employee.setField(EmployeeRec1000::AcceptsTransfers, chkTransfers->isChecked() ? "-1" : "0");
    employee.setField(EmployeeRec1000::InactiveFlag, chkInactive->isChecked() ? "-1" : "0");
    employee.setField(EmployeeRec1000::AddressSpare, {});
    employee.setField(EmployeeRec1000::EmployeeTail, {});
    return employee;
}

void TCEmployee::save()
{
    const int number = int(NumericValue(ansi(txtRecord)));
    if (number < 1)
        return;
    applyDefaults();
    RecordFile(employeePath(), EmployeeRec1000::size).PutRecord(number, recordOnScreen().bytes());
}

void TCEmployee::clearFields()
{
    for (QLineEdit *box : textBoxes())
        box->clear();
    txtNotes->clear();
    txtRecord->clear();
    for (int job = 0; job < jobCount; ++job) {
        cmbJob[job]->setEditText({});
        cmbJobDepartment[job]->setEditText({});
    }
}

void TCEmployee::AddNew_Click()
{
    cmdAddNew->setEnabled(false);
    clearFields();
    cmdSaveNew->setEnabled(true);
    txtRecord->setText(QString::number(recordCount() + 1));
    txtName->setFocus();
    cmdSaveUpdate->setEnabled(false);
    cmdDelete->setEnabled(false);
    for (QComboBox *box : jobPickers() + departmentPickers())
        box->setEditText({});
    chkTransfers->setChecked(false);
}

void TCEmployee::SaveNew_Click()
{
    cmdSaveNew->setEnabled(false);
    cmdSaveUpdate->setEnabled(false);
    cmdAddNew->setEnabled(true);
    txtRecord->setText(QString::number(recordCount() + 1));
    save();
    Command1_Click(0);
    cmdSaveUpdate->setEnabled(true);
    cmdDelete->setEnabled(true);
}

// Data\Zemployee.tmp stays behind.
void TCEmployee::Delete_Click()
{
    const int deleted = int(NumericValue(ansi(txtRecord)));
    if (deleted >= 1)
        DeleteEmployeeRecord(employeePath(), listPath(employeeTemp), deleted);
    clearFields();
    Command1_Click(0);
    txtRecord->setText(QStringLiteral("0"));
}

void TCEmployee::editList(const QString &title, const QByteArray &file)
{
    QWidget *screen = Screens().touch(QStringLiteral("ListEditor"));
    if (!screen)
        return;
    screen->show();
    if (auto *editor = dynamic_cast<ListEditorCompanion *>(screen)) {
        editor->setList(title, file);
        editor->Fill_List();
    }
}

} // namespace qlon

#include "editors/PhoneList.h"

#include "core/Ansi.h"
#include "core/Conversions.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "store/EmployeeRec1000.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>

namespace qlon {

namespace {

constexpr std::array<EmployeeRec1000::Field, 3> shownFields = {
    EmployeeRec1000::EmployeeName, EmployeeRec1000::Phone, EmployeeRec1000::EmergencyContact};

// The employees who count and are active, each as the texts of the shown fields, by name.
QList<QStringList> activeEmployees()
{
    QList<QStringList> employees;
    const QString path = HostPath(Site().SiteRoot + EmployeeFile);
    if (!FileExists(path))
        return employees;
    RecordFile file(path, EmployeeRec1000::size);
    for (qint32 number = 1; number <= file.CountRecords(); ++number) {
        const EmployeeRec1000 employee(file.GetRecord(number));
        if (employee.trimmedField(EmployeeRec1000::EmployeeName).isEmpty() ||
            NumericValue(employee.field(EmployeeRec1000::InactiveFlag)) == -1)
            continue;
        QStringList texts;
        for (EmployeeRec1000::Field field : shownFields)
            texts.append(FromAnsi(employee.trimmedField(field)));
        employees.append(texts);
    }
    std::stable_sort(employees.begin(), employees.end(),
        [](const QStringList &one, const QStringList &other) { return one[0].compare(other[0], Qt::CaseInsensitive) < 0; });
    return employees;
}

} // namespace

PhoneList::PhoneList(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Phone List"));
    grdPhones = Named(new QTableWidget(0, int(shownFields.size()), this), QStringLiteral("grdPhones"));
    grdPhones->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Phone"), QStringLiteral("Emergency Contact")});
    grdPhones->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grdPhones->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdPhones->verticalHeader()->hide();
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(grdPhones, 0, 0, 1, 2);
    layout->addWidget(cmdClose, 1, 1);
    layout->setColumnStretch(0, 1);
    resize(520, 480);
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void PhoneList::Command3_Click()
{
    const QList<QStringList> employees = activeEmployees();
    grdPhones->setRowCount(int(employees.size()));
    for (int row = 0; row < employees.size(); ++row) {
        for (int column = 0; column < employees[row].size(); ++column)
            grdPhones->setItem(row, column, new QTableWidgetItem(employees[row][column]));
    }
    ShowInFront(this);
}

} // namespace qlon

#pragma once

#include "core/FixedRecord.h"

#include <QByteArrayList>
#include <QString>

namespace qlon {

inline constexpr auto EmployeeLayout = LayoutOfWidths<32>(
    {20, 20, 30, 30, 30, 20, 10, 10, 10, 10, 20, 10, 10, 40, 330, 20, 20, 20, 5, 20, 20, 10, 10, 10, 10, 20, 20, 20, 20, 20, 5, 150});

// The employee files, below SiteRoot for the employee editor and below EmployeeRoot for the
// server picker and the server sales report.
inline const QByteArray EmployeeFile = QByteArrayLiteral("Data\\Zemployee.dat");
// The choices the employee editor offers, one quoted name a line, beside the employee file.
inline const QByteArray JobTitlesFile = QByteArrayLiteral("Data\\Jobs1.dat");
inline const QByteArray JobTypesFile = QByteArrayLiteral("Data\\Jobs2.dat");
inline const QByteArray PayrollDepartmentsFile = QByteArrayLiteral("Data\\DEPT.dat");

// One employee of Data\Zemployee.dat. The employee editor owns the record; a record with an empty
// name is an empty slot that readers pass over.
class EmployeeRec1000 : public FixedRecord<1000, EmployeeLayout>
{
public:
    using FixedRecord::FixedRecord;

    enum Field {
        EmployeeNumber,
        Phone,
        EmployeeName,
        Address,
        AddressSpare,
        City,
        State,
        Zip,
        BirthDate,
        StartDate,
        SocSec,
        HourlyRate,
        CommissionRate,
        EmergencyContact,
        Notes,
        JobTitle1,
        JobTitle2,
        DefaultDepartment,
        AcceptsTransfers,
        JobTitle3,
        JobTitle4,
        JobRate1,
        JobRate2,
        JobRate3,
        JobRate4,
        JobDepartment1,
        JobDepartment2,
        JobDepartment3,
        JobDepartment4,
        DefaultJob,
        InactiveFlag,
        EmployeeTail,
    };
};

// The server picker's numbers, in record order: the trimmed EmployeeNumber of every record that
// has one and whose AcceptsTransfers box isn't off. Whether the employee is inactive isn't asked.
// A missing file gives none and isn't created.
QByteArrayList ServerNumbers(const QString &employeeFileHostPath);

} // namespace qlon

#include "store/EmployeeRec1000.h"

#include "core/Conversions.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"

namespace qlon {

QByteArrayList ServerNumbers(const QString &employeeFileHostPath)
{
    if (!FileExists(employeeFileHostPath))
        return {};
    RecordFile file(employeeFileHostPath, EmployeeRec1000::size);
    QByteArrayList numbers;
    for (qint32 number = 1; number <= file.CountRecords(); ++number) {
        const EmployeeRec1000 employee(file.GetRecord(number));
        const QByteArray serverNumber = employee.trimmedField(EmployeeRec1000::EmployeeNumber);
        if (!serverNumber.isEmpty() && NumericValue(employee.field(EmployeeRec1000::AcceptsTransfers)) != 0)
            numbers.append(serverNumber);
    }
    return numbers;
}

} // namespace qlon

#include "editors/logic/EmployeeDelete.h"

#include "core/FileTable.h"
#include "store/EmployeeRec1000.h"

#include <QFile>

namespace qlon {

void DeleteEmployeeRecord(const QString &employeeHostPath, const QString &temporaryHostPath, int deleted)
{
    QFile::remove(temporaryHostPath);
    {
        RecordFile source(employeeHostPath, EmployeeRec1000::size);
        QByteArray kept;
        for (int number = 1; number <= source.CountRecords(); ++number) {
            const QByteArray record = source.GetRecord(number);
            if (number != deleted && !EmployeeRec1000(record).trimmedField(EmployeeRec1000::EmployeeName).isEmpty())
                kept += record;
        }
        RecordFile(temporaryHostPath, EmployeeRec1000::size).PutRecords(1, kept);
    }
    CloseAll();
    FileCopy(temporaryHostPath, employeeHostPath);
}

} // namespace qlon

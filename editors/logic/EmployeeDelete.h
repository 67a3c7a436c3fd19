#pragma once

#include <QString>

namespace qlon {

// The employee editor's delete: the employee file is written anew without record `deleted` and
// without any record whose name is empty, so the records behind move up. The kept records are
// gathered in the temporary file, which stays behind, and copied over the employee file whole.
void DeleteEmployeeRecord(const QString &employeeHostPath, const QString &temporaryHostPath, int deleted);

} // namespace qlon

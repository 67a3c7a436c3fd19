#include "itemssold/logic/DepartmentFilter.h"

#include "core/CarriedFields.h"
#include "core/FixedField.h"
#include "core/Format.h"

namespace qlon {

DepartmentRows RowsOfDepartment(const QByteArrayList &rows, const QByteArray &selection)
{
    const QByteArray trimmed = TrimBlanks(selection);
    const bool all = trimmed.isEmpty() || trimmed == "All";
    DepartmentRows chosen;
    CarriedFields fields(5);
    for (int row = 0; row < rows.size(); ++row) {
        fields.read(rows[row]);
        if (!all && TrimBlanks(fields[4]) != trimmed)
            continue;
        chosen.kept.append(row);
        chosen.total += FormattedValue(fields[2], "###,###,###.##");
    }
    return chosen;
}

} // namespace qlon

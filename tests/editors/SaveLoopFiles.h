#pragma once

#include "store/Departments.h"
#include "store/EmployeeRec1000.h"
#include "store/ItemRec500.h"

#include <QByteArrayList>

#include <array>

// What the save loop writes over and over, and what the kill test may find after each kill.
namespace qlon::test {

// The departments file switches between the editor's defaults and 14 edited rows.
inline QByteArrayList EditedDepartments()
{
    QByteArrayList rows;
    for (int row = 1; row <= 14; ++row)
        rows.append(row % 4 == 0 ? QByteArray() : "Dept, " + QByteArray::number(row));
    return rows;
}

// Three employees, stepped through their rotations: the first is deleted, then put back behind.
inline std::array<QByteArray, 3> Employees()
{
    std::array<QByteArray, 3> records;
    for (int index = 0; index < 3; ++index) {
        EmployeeRec1000 employee;
        employee.setField(EmployeeRec1000::EmployeeName, "Employee " + QByteArray::number(index + 1));
        employee.setField(EmployeeRec1000::Notes, QByteArray(330, char('a' + index)));
        records[index] = employee.bytes();
    }
    return records;
}

// Three item buttons, whose second the item editor saves as one title and then the other.
inline QByteArray ItemButton(const QByteArray &title)
{
    ItemRec500 item;
    item.setField(ItemRec500::ButtonTitle, title);
    item.setField(ItemRec500::RecordTail, title.repeated(30));
    return item.bytes();
}

inline QByteArray ItemButtons(const QByteArray &secondTitle)
{
    return ItemButton("Burger") + ItemButton(secondTitle) + ItemButton("Fries");
}

// Large enough that a kill lands in the middle of writing in place.
inline QByteArray InPlaceBefore()
{
    return QByteArray(96 * 1024, 'o');
}

inline QByteArray InPlaceAfter()
{
    return QByteArray(64 * 1024, 'n');
}

} // namespace qlon::test

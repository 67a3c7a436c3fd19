// The kill test's child: saves one of the stations' files over and over, the way the editors save
// it, until it is killed. save_loop departments|employees|items|in-place FOLDER
#include "core/FileReplace.h"
#include "core/RecordFile.h"
#include "editors/logic/EmployeeDelete.h"
#include "tests/editors/SaveLoopFiles.h"

#include <QFile>

#include <cstdio>
#include <string_view>

namespace {

using namespace qlon;

void saveDepartments(const QString &folder)
{
    const QString path = folder + QStringLiteral("/Departments.dat");
    WriteDepartmentNames(path, test::EditedDepartments());
    WriteDepartmentNames(path, DepartmentsEditorDepartments());
}

// Three records: the first is deleted; two: the one missing is put back as the third.
void deleteOrPutBack(const QString &folder)
{
    const QString path = folder + QStringLiteral("/Zemployee.dat");
    RecordFile file(path, EmployeeRec1000::size);
    if (file.CountRecords() == 3) {
        file.close();
        DeleteEmployeeRecord(path, folder + QStringLiteral("/Zemployee.tmp"), 1);
        return;
    }
    const QByteArray kept = file.GetRecord(1) + file.GetRecord(2);
    for (const QByteArray &employee : test::Employees())
        if (!kept.contains(employee))
            file.PutRecord(3, employee);
}

// The file stays open, so that the puts are nearly all the loop does.
void putItemButton(const QString &folder)
{
    RecordFile file(folder + QStringLiteral("/Button0.dat"), ItemRec500::size);
    for (int put = 0; put < 1000; ++put)
        file.PutRecord(2, test::ItemButton(put % 2 == 0 ? "Pizza Pie" : "Calzone"));
}

void saveInPlace(const QString &folder)
{
    const QString path = folder + QStringLiteral("/InPlace.dat");
    ReplaceInPlaceKeepingCopy(path, test::InPlaceAfter());
    ReplaceInPlaceKeepingCopy(path, test::InPlaceBefore());
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3)
        return 2;
    const std::string_view mode = argv[1];
    const QString folder = QFile::decodeName(argv[2]);
    const auto save = mode == "departments" ? saveDepartments
        : mode == "employees"               ? deleteOrPutBack
        : mode == "items"                   ? putItemButton
                                            : saveInPlace;
    std::puts("saving");
    std::fflush(stdout);
    for (;;)
        save(folder);
}

#include "store/Departments.h"

#include "core/FileReplace.h"
#include "core/HostPath.h"
#include "core/TextFile.h"

namespace qlon {

QByteArrayList MainScreenDepartments()
{
    return {"Food", "Beverage", "Catering", "Speicals", "Retail", "Gift Card", "All"};
}

QByteArrayList ItemEditorDepartments()
{
    return MainScreenDepartments();
}

QByteArrayList ItemsSoldDepartments()
{
    return QByteArrayList{"All"} + MainScreenDepartments();
}

QByteArrayList DepartmentsEditorDepartments()
{
    return ItemsSoldDepartments() + QByteArrayList{"Liquor", "Beer", "Wine"};
}

bool EnsureDepartmentsFile(const QString &hostPath, const QByteArrayList &defaults)
{
    if (FileExists(hostPath))
        return false;
    WriteDepartmentNames(hostPath, defaults);
    return true;
}

QByteArrayList ReadDepartmentNames(const QString &hostPath, qsizetype limit)
{
    TextFile file(hostPath, TextFile::Mode::Input);
    QByteArrayList names;
    while (!file.AtEnd() && names.size() != limit)
        names.append(file.ReadField());
    return names;
}

void WriteDepartmentNames(const QString &hostPath, const QByteArrayList &rows)
{
    QByteArray lines;
    for (const QByteArray &row : rows)
        AppendQuotedLine(lines, {row});
    ReplaceFile(hostPath, lines);
}

} // namespace qlon

#include "store/Departments.h"

#include "store/SiteConfig.h"

#include "core/Ansi.h"
#include "core/FileReplace.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "core/TextFile.h"

#include <QFileInfo>

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

QStringList ReportDepartments(bool mainScreen)
{
    const QByteArray file = mainScreen ? DataPath("data\\Departments.dat") : Site().DataRoot + "data\\Departments.dat";
    const QString hostPath = HostPath(file);
    const QByteArrayList names = QFileInfo::exists(hostPath) ? ReadDepartmentNames(hostPath)
        : mainScreen                                         ? MainScreenDepartments()
                                                             : ItemsSoldDepartments();
    QStringList departments;
    for (const QByteArray &name : names) {
        const QString trimmed = FromAnsi(TrimBlanks(name));
        if (!trimmed.isEmpty() && !departments.contains(trimmed))
            departments.append(trimmed);
    }
    return departments;
}

void WriteDepartmentNames(const QString &hostPath, const QByteArrayList &rows)
{
    QByteArray lines;
    for (const QByteArray &row : rows)
        AppendQuotedLine(lines, {row});
    ReplaceFile(hostPath, lines);
}

} // namespace qlon

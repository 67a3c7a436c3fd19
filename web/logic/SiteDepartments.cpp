#include "web/logic/SiteDepartments.h"

#include "core/FileTable.h"
#include "core/HostPath.h"
#include "core/RuntimeError.h"
#include "store/Departments.h"
#include "store/SiteConfig.h"

namespace qlon::web {

namespace {

// The site's configuration tells where its data lies; it is read afresh each time, and let go at
// once, so that no report child finds it held.
void readSiteConfiguration()
{
    try {
        ReadConfiguration();
    } catch (const RuntimeError &) {
        CloseAll();
        throw;
    }
    CloseAll();
}

// The file the departments editor edits.
QString departmentsPath()
{
    readSiteConfiguration();
    return HostPath(DataPath("data\\Departments.dat"));
}

} // namespace

QByteArrayList DepartmentEditorRows()
{
    const QString path = departmentsPath();
    QByteArrayList rows = FileExists(path) ? ReadDepartmentNames(path, DepartmentRows) : DepartmentsEditorDepartments();
    while (rows.size() < DepartmentRows)
        rows.append(QByteArray());
    return rows;
}

void SaveDepartmentRows(const QByteArrayList &rows)
{
    WriteDepartmentNames(departmentsPath(), rows);
}

QStringList FormDepartments()
{
    readSiteConfiguration();
    return ReportDepartments(true);
}

} // namespace qlon::web

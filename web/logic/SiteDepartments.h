#pragma once

#include <QByteArrayList>
#include <QStringList>

namespace qlon::web {

// The rows of the departments editor: as many as its screen has.
constexpr int DepartmentRows = 14;

// The site's departments list, data\Departments.dat, read and written through the store's own
// reader and writer, as the departments editor and the report command do. The program's file
// table and drive mapping are one per process: callers take turns. A failure raises the
// platform's RuntimeError, whose detail names the file.

// The editor's rows as its screen loads them: the file's first names, or the names the editor
// writes into a missing file, then blank rows.
QByteArrayList DepartmentEditorRows();

// Replaces the file with the rows, as the editor's Done does: the store's crash-safe replace,
// which refuses a file a station holds.
void SaveDepartmentRows(const QByteArrayList &rows);

// The departments `qlon report --department` takes for the main report, in file order.
QStringList FormDepartments();

} // namespace qlon::web
